#pragma once

#include <QPageSize>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/qt/QtPrinterSurface.h"
#include "support/TemporaryFolder.h"

namespace velna {

/// A line of a page, millimetres from the paper's upper left corner.
struct PaperLine {
    double x1, y1, x2, y2, width;
    double length() const { return std::hypot(x2 - x1, y2 - y1); }
};

inline QString output(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// What another program finds in the file, path by path.
inline std::vector<std::vector<PaperLine>> pathsOf(const std::string& file, int page) {
    const QString trace =
        output("mutool", {"trace", QString::fromStdString(file), QString::number(page)});
    static const QRegularExpression path(
        R"re(<stroke_path linewidth="([^"]+)".*?transform="([^" ]+)[^"]*">(.*?)</stroke_path>)re",
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression step(R"re(<(moveto|lineto) x="([^"]+)" y="([^"]+)")re");
    std::vector<std::vector<PaperLine>> paths;
    for (auto found = path.globalMatch(trace); found.hasNext();) {
        const auto match = found.next();
        const double mm = match.captured(2).toDouble() * 25.4 / 72;
        std::vector<PaperLine> lines;
        double x = 0, y = 0;
        for (auto steps = step.globalMatch(match.captured(3)); steps.hasNext();) {
            const auto to = steps.next();
            const double nextX = to.captured(2).toDouble() * mm;
            const double nextY = to.captured(3).toDouble() * mm;
            if (to.captured(1) == "lineto")
                lines.push_back({x, y, nextX, nextY, match.captured(1).toDouble() * mm});
            x = nextX;
            y = nextY;
        }
        paths.push_back(lines);
    }
    return paths;
}

inline std::vector<PaperLine> linesOf(const std::string& file, int page) {
    std::vector<PaperLine> lines;
    for (const auto& path : pathsOf(file, page))
        lines.insert(lines.end(), path.begin(), path.end());
    return lines;
}

inline int pagesOf(const std::string& file) {
    static const QRegularExpression count(R"(Pages:\s+(\d+))");
    return count.match(output("pdfinfo", {QString::fromStdString(file)})).captured(1).toInt();
}

/// A printer whose paper is a file, and what another program measures in it.
class Paper : public testing::Test {
protected:
    std::unique_ptr<QtPrinterSurface> surface(int resolution = 1200, bool landscape = false,
                                              QPageSize::PageSizeId size = QPageSize::A4) {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(QString::fromStdString(target()));
        printer->setResolution(resolution);
        printer->setPageSize(QPageSize(size));
        printer->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        printer->setPageMargins(QMarginsF(10, 12, 14, 16), QPageLayout::Millimeter);
        return std::make_unique<QtPrinterSurface>(std::move(printer));
    }
    std::string target() const { return folder.path() + "plan.pdf"; }
    std::string job(const char* name) const { return folder.path() + "plan-" + name + ".pdf"; }

    test::TemporaryFolder folder;
};

}  // namespace velna
