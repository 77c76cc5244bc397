#pragma once

#include <QPageLayout>
#include <memory>
#include <string>

#include "common/ReplacedFile.h"
#include "shell/ExportRequest.h"
#include "shell/qt/PagedSurface.h"

class QIODevice;
class QPdfWriter;

namespace velna {

/// Pages in PDF files, with no printer and no display: what a window prints into a file.
class PdfSurface : public PagedSurface {
public:
    /// Each job gets a file named after `target` and itself.
    PdfSurface(std::string target, const PaperSize& paper, bool landscape);
    ~PdfSurface() override;

    void StartDoc(const std::string& name, Progress* watcher) override;
    Outcome EndDoc() override;
    void KillDoc() override;

private:
    bool turnPage() override;

    std::string target_;
    QPageLayout layout_;
    std::string finished_;  // the place of the present job's file
    std::unique_ptr<ReplacedFile> file_;
    std::unique_ptr<QIODevice> device_;
    std::unique_ptr<QPdfWriter> writer_;
};

}  // namespace velna
