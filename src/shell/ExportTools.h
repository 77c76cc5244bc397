#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "model/Fits.h"

namespace velna {

class Imaging;
class PrinterSurface;
class Progress;
class Surface;
struct ExportRequest;

/// A picture that is drawn on and then had as a file.
class DrawnPicture {
public:
    virtual ~DrawnPicture() = default;

    virtual Surface& surface() = 0;
    /// The bytes of a PNG file; false with the reason where there is no memory for them.
    virtual bool encode(std::string& bytes, std::string& reason) = 0;
};

/// What exports without a window need of the toolkit. Each is made when it is asked for, so that a
/// kind of file that needs none of them costs none of them.
class ExportTools {
public:
    virtual ~ExportTools() = default;

    /// Reads and writes the objects' pictures.
    virtual Imaging& imaging() = 0;
    /// A white picture of `size` pixels; null where memory has no room for it.
    virtual std::unique_ptr<DrawnPicture> picture(SurfaceSize size) = 0;
    /// Sheets as `request` wants them; each job becomes a file named after `file` and the job.
    virtual std::unique_ptr<PrinterSurface> printer(const std::string& file,
                                                    const ExportRequest& request) = 0;
    /// May end a long export; null: nobody watches.
    virtual Progress* watcher() = 0;

    /// Of several projects `project` is next, the `number`th of `total`.
    virtual void next(std::size_t number, std::size_t total, const std::string& project) = 0;
    /// What `next` has shown must not stand in the way of a line that follows.
    virtual void clear() = 0;
};

}  // namespace velna
