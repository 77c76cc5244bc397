#include "shell/qt/CommandLine.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>
#include <csignal>
#include <cstdio>
#include <exception>
#include <memory>

#include <unistd.h>

#include "common/Progress.h"
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

/// Keeps signals that end a program waiting until an unfinished file is out of the way. They take
/// their course when this goes.
class Interruption : public Progress {
public:
    Interruption() {
        sigemptyset(&awaited_);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&awaited_, signal);
        sigprocmask(SIG_BLOCK, &awaited_, &former_);
    }
    ~Interruption() override { sigprocmask(SIG_SETMASK, &former_, nullptr); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    bool step(long long /*done*/, long long /*total*/) override { return stillAtWork(); }
    bool stillAtWork() override {
        sigset_t pending;
        sigpending(&pending);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            if (sigismember(&pending, signal) == 1) return false;
        return true;
    }

private:
    sigset_t awaited_{};
    sigset_t former_{};
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
        return std::make_unique<PdfSurface>(file, request.paper, request.landscape);
    }
    Progress* watcher() override { return &interruption_; }

    void next(std::size_t number, std::size_t total, const std::string& project) override {
        if (!terminal_) return;
        std::fprintf(stderr, "\r\033[K%zu of %zu: %s", number, total, project.c_str());
        std::fflush(stderr);
    }
    void clear() override {
        if (terminal_) std::fputs("\r\033[K", stderr);
    }

private:
    Interruption interruption_;
    QtPictures pictures_;
    bool terminal_;
};

/// Fonts are the toolkit's own matter and need its application, on a screen that is none. What it
/// misses of a desktop meanwhile is of no use to anybody here.
class FontsWithoutScreen {
public:
    FontsWithoutScreen() : former_(qInstallMessageHandler(passOver)), application_(count_, words_) {
        qInstallMessageHandler(former_);
    }

private:
    static void passOver(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                         const QString& /*text*/) {}

    QtMessageHandler former_;
    char name_[6] = "velna";
    char option_[10] = "-platform";
    char platform_[10] = "offscreen";
    char* words_[4] = {name_, option_, platform_, nullptr};
    int count_ = 3;
    QGuiApplication application_;
};

/// Marks for taping have words, and so have parts to be cut.
bool writesWords(const PrintSelectRecord& plans) {
    return plans.overlap || plans.wing || plans.ribs;
}

int runExports(const ExportRequest& request) {
    std::unique_ptr<FontsWithoutScreen> fonts;
    if (request.kind == ExportKind::Plans && writesWords(request.plans))
        fonts = std::make_unique<FontsWithoutScreen>();
    // The toolkit writes a PNG by itself; the plugins that it would ask first take longer than
    // that.
    if (request.kind == ExportKind::Picture) QCoreApplication::setLibraryPaths({});
    QtExportTools tools;
    return exportProjects(request, tools);
}

}  // namespace

int runWithoutWindow(const Arguments& arguments) {
    switch (arguments.wish) {
        case Arguments::Wish::Export:
            return runExports(arguments.exports);
        case Arguments::Wish::Info:
            return tellFigures(arguments.info);
        default:
            return answer(arguments);
    }
}

}  // namespace velna
