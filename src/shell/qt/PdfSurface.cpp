#include "shell/qt/PdfSurface.h"

#include <QIODevice>
#include <QPageSize>
#include <QPdfWriter>
#include <utility>

#include "output/Plans.h"

namespace velna {
namespace {

constexpr int resolution = 1200;  // dots an inch, as a printer into a file has them
constexpr double margin = 10;     // points, likewise

/// Hands the toolkit's bytes to a file that takes its place when it is complete.
class IntoFile : public QIODevice {
public:
    explicit IntoFile(ReplacedFile& file) : file_(file) { open(WriteOnly); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* /*data*/, qint64 /*most*/) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override {
        file_.append({data, static_cast<std::size_t>(size)});
        return size;  // a failure is the file's, and told at its end
    }

private:
    ReplacedFile& file_;
};

QPageLayout layoutOf(const PaperSize& paper, bool landscape) {
    const QPageSize size(QSizeF(paper.width, paper.height), QPageSize::Millimeter, {},
                         QPageSize::ExactMatch);
    QPageLayout layout(size, landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(margin, margin, margin, margin));
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

}  // namespace

PdfSurface::PdfSurface(std::string target, const PaperSize& paper, bool landscape)
    : target_(std::move(target)), layout_(layoutOf(paper, landscape)) {
    readPaper(layout_, resolution);
}

PdfSurface::~PdfSurface() {
    if (paints()) KillDoc();
}

void PdfSurface::StartDoc(const std::string& name, Progress* watcher) {
    startAnew(watcher);
    finished_ = Plans::jobFile(target_, name);
    file_ = std::make_unique<ReplacedFile>(finished_, Links::replaced);
    device_ = std::make_unique<IntoFile>(*file_);
    writer_ = std::make_unique<QPdfWriter>(device_.get());
    writer_->setResolution(resolution);
    writer_->setPageLayout(layout_);
    writer_->setTitle(QString("Velna %1").arg(QString::fromStdString(name)));
    if (!file_->error().empty()) {
        fail(titleOf(finished_) + ": " + file_->giveUp());
    } else if (!paintOn(*writer_)) {
        fail("The pages cannot be painted");
    }
}

bool PdfSurface::turnPage() {
    return writer_->newPage();
}

Outcome PdfSurface::EndDoc() {
    finishPainting();
    writer_.reset();
    device_.reset();
    if (error().empty() && !isCancelled() && !file_->commit())
        fail(titleOf(finished_) + ": " + file_->error());
    file_.reset();
    if (isCancelled()) return Outcome::cancelled();
    return error().empty() ? Outcome() : Outcome::failed(error());
}

void PdfSurface::KillDoc() {
    dropPainting();
    writer_.reset();
    device_.reset();
    file_.reset();
}

}  // namespace velna
