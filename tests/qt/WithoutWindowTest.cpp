// A project read, exported and printed to PDF by a program that has no window.

#include <QProcess>
#include <QRegularExpression>
#include <QWidget>

#include <gtest/gtest.h>

#include "model/Plane.h"
#include "model/Solids.h"
#include "output/Exports.h"
#include "output/Plans.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"
#include "shell/qt/QtImaging.h"
#include "shell/qt/QtPrinterSurface.h"
#include "support/SameBytes.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

std::unique_ptr<QPrinter> pdfPrinter(const std::string& file) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(file));
    return printer;
}

/// All that such a program says: `source` read, everything written into `folder`.
void writeAll(const std::string& source, const test::TemporaryFolder& folder) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    ASSERT_EQ(Plane::readProject(aircraft, source), Outcome());
    Solids solids;
    solids.createAll(aircraft);
    QWidget owner;
    QtImaging imaging(owner);
    PictureStore pictures{&imaging, {}};
    EXPECT_EQ(Plane::exportVRML(aircraft, solids, folder / "a.wrl", pictures), Outcome());
    EXPECT_EQ(Plane::exportDXFVTop(aircraft, folder / "a.VTop.dxf"), Outcome());
    EXPECT_EQ(Plane::exportDXFFront(aircraft, folder / "a.Front.dxf"), Outcome());
    EXPECT_EQ(Plane::exportDXFSide(aircraft, folder / "a.Side.dxf"), Outcome());
    EXPECT_EQ(Plane::exportDXFHTop(aircraft, folder / "a.HTop.dxf"), Outcome());
    QtPrinterSurface printer(pdfPrinter(folder / "plan.pdf"));
    PrintSelectRecord all;
    all.Side = all.htop = all.frontSections = all.vtop = all.front = true;
    EXPECT_EQ(Plans::printPlans(aircraft, all, {printer, {900, 500}}), Outcome());
}

TEST(WithoutWindow, AProjectIsReadExportedAndPrinted) {
    const std::string data = std::string(VELNA_TEST_DATA) + "/";
    const test::TemporaryFolder folder;
    writeAll(data + "projects/current/wings3.vln", folder);
    for (const char* name : {".wrl", ".VTop.dxf", ".Front.dxf", ".Side.dxf", ".HTop.dxf"})
        EXPECT_TRUE(test::sameBytes(test::bytesOf(folder / (std::string("a") + name)),
                                    test::bytesOf(data + "exports/wings3" + name)))
            << name;
    for (const char* plan : {"side", "sections", "vtop", "front", "htop"}) {
        QProcess info;
        info.start("pdfinfo",
                   {QString::fromStdString(folder / ("plan-" + std::string(plan) + ".pdf"))});
        info.waitForFinished();
        static const QRegularExpression pages(R"(Pages:\s+([1-9]\d*)\s)");
        EXPECT_TRUE(pages.match(QString::fromUtf8(info.readAllStandardOutput())).hasMatch())
            << plan;
    }
}

}  // namespace
}  // namespace velna
