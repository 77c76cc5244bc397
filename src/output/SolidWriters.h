#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "common/Progress.h"
#include "model/SolidParts.h"

namespace velna {

class ObjMaterials;
class SolidPictures;

/// Takes the bytes of one file.
class ByteSink {
public:
    virtual ~ByteSink() = default;
    virtual void append(std::string_view bytes) = 0;
    /// Puts `bytes` in the place of as many from byte `at` on.
    virtual void overwrite(std::size_t at, std::string_view bytes) = 0;
    /// Makes the whole export fail with `reason`.
    virtual void fail(const std::string& reason) = 0;
};

/// What a writer works with.
struct SolidTarget {
    ByteSink& file;
    SolidPictures& pictures;
    ObjMaterials& materials;
    Work& work;
};

/// Writes parts into one file of one kind; a part ends early once the user has cancelled.
class SolidWriter {
public:
    virtual ~SolidWriter() = default;
    virtual void add(const SolidPart& part) = 0;
    /// All parts are in.
    virtual void end() = 0;
};

// A writer a format; each begins its file at once.
std::unique_ptr<SolidWriter> stlWriter(const SolidTarget& target);
std::unique_ptr<SolidWriter> threeMfWriter(const SolidTarget& target);
std::unique_ptr<SolidWriter> objWriter(const SolidTarget& target);
std::unique_ptr<SolidWriter> glbWriter(const SolidTarget& target);

}  // namespace velna
