#include "shell/qt/CommandLine.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>
#include <cstdio>
#include <exception>
#include <memory>

#include <unistd.h>

#include "shell/Arguments.h"
#include "shell/BatchExport.h"
#include "shell/ExportTools.h"
#include "shell/qt/ImageSurface.h"
#include "shell/qt/PdfSurface.h"
#include "shell/qt/QtPictures.h"

namespace velna {
namespace {

class ImagePicture : public DrawnPicture {
public:
    explicit ImagePicture(QSize size) : surface_(size) {}

    bool hasPaper() const { return !surface_.image().isNull(); }
    Surface& surface() override { return surface_; }
    bool encode(std::string& bytes, std::string& reason) override {
        try {
            QByteArray encoded;
            QBuffer buffer(&encoded);
            buffer.open(QIODevice::WriteOnly);
            QImageWriter writer(&buffer, "png");
            if (writer.write(surface_.image())) {
                bytes.assign(encoded.constData(), static_cast<std::size_t>(encoded.size()));
                return true;
            }
            reason = writer.errorString().toStdString();
        } catch (const std::exception&) {
            reason = "The picture needs more memory than there is";
        }
        return false;
    }

private:
    ImageSurface surface_;
};

class QtExportTools : public ExportTools {
public:
    QtExportTools() : terminal_(isatty(STDERR_FILENO) == 1) {}

    Imaging& imaging() override { return pictures_; }
    std::unique_ptr<DrawnPicture> picture(SurfaceSize size) override {
        auto picture = std::make_unique<ImagePicture>(QSize(size.width, size.height));
        return picture->hasPaper() ? std::move(picture) : nullptr;
    }
    std::unique_ptr<PrinterSurface> printer(const std::string& file,
                                            const ExportRequest& request) override {
        return std::make_unique<PdfSurface>(file, request.sheet, request.landscape);
    }
    Progress* watcher() override { return nullptr; }

    void next(std::size_t number, std::size_t total, const std::string& project) override {
        if (!terminal_) return;
        std::fprintf(stderr, "\r\033[K%zu of %zu: %s", number, total, project.c_str());
        std::fflush(stderr);
    }
    void clear() override {
        if (terminal_) std::fputs("\r\033[K", stderr);
    }

private:
    QtPictures pictures_;
    bool terminal_;
};

/// Fonts are the toolkit's own matter and need its application, on a screen that is none.
class FontsWithoutScreen {
public:
    FontsWithoutScreen() : application_(count_, words_) {}

private:
    char name_[6] = "velna";
    char option_[10] = "-platform";
    char platform_[10] = "offscreen";
    char* words_[4] = {name_, option_, platform_, nullptr};
    int count_ = 3;
    QGuiApplication application_;
};

int runExports(const ExportRequest& request) {
    std::unique_ptr<FontsWithoutScreen> fonts;
    if (request.kind == ExportKind::Plans && request.plans.overlap)
        fonts = std::make_unique<FontsWithoutScreen>();
    QtExportTools tools;
    return exportProjects(request, tools);
}

}  // namespace

int runWithoutWindow(const Arguments& arguments) {
    return arguments.wish == Arguments::Wish::Export ? runExports(arguments.exports)
                                                     : answer(arguments);
}

}  // namespace velna
