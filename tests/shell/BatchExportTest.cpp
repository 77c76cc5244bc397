#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "BatchExportFixture.h"
#include "support/FileSizeLimit.h"

namespace velna::test {
namespace {

TEST_F(BatchExport, EveryStoredAircraftGivesItsStoredFiles) {
    for (const auto& entry : std::filesystem::directory_iterator(data + "exports")) {
        const std::string stored = entry.path().filename().string();
        SCOPED_TRACE(stored);
        const std::string name = stored.substr(0, stored.find('.'));
        if (name == "tex_all") continue;  // its pictures are the toolkit's
        const std::string kind = entry.path().extension().string().substr(1);
        for (const auto& [view, mode] : {std::pair{"VTop", ViewMode::VTop},
                                         {"Front", ViewMode::Front},
                                         {"Side", ViewMode::Side},
                                         {"HTop", ViewMode::HTop}})
            if (stored.find(std::string(".") + view) != std::string::npos) request.view = mode;
        ASSERT_EQ(run(folder / stored, kind, {current + name + ".vln"}), 0) << complaint;
        EXPECT_EQ(bytesOf(folder / stored), bytesOf(entry.path().string()));
        EXPECT_EQ(complaint, "");
    }
}

TEST_F(BatchExport, EveryOlderProjectBecomesACurrentOne) {
    int seen = 0;
    for (const auto& entry : std::filesystem::directory_iterator(data + "projects/legacy")) {
        const std::string name = entry.path().filename().string();
        if (!name.ends_with(".resaved.vln") || name.starts_with("V0.1")) continue;
        SCOPED_TRACE(name);
        const std::string stem = name.substr(0, name.size() - sizeof(".resaved.vln") + 1);
        const int status =
            run(folder / "out.vln", "vln", {data + "projects/legacy/" + stem + ".vln"});
        // Of some the pictures were never kept.
        EXPECT_TRUE(status == 0 || complaint.find("could not be put beside") != std::string::npos)
            << complaint;
        EXPECT_NE(bytesOf(folder / "out.vln"), "");
        std::filesystem::remove(folder / "out.vln");
        ++seen;
    }
    EXPECT_EQ(seen, 13);
}

TEST_F(BatchExport, AProjectIsExportedIntoItsOwnPlace) {
    const std::string file = folder / "a.vln";
    writeBytes(file, bytesOf(current + "default.vln"));
    EXPECT_EQ(run(file, "vln", {file}), 0);
    EXPECT_EQ(bytesOf(file), bytesOf(current + "default.vln"));
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(BatchExport, WhatIsNoWholeProjectIsToldAndWritesNothing) {
    const std::string whole = bytesOf(current + "default.vln");
    writeBytes(folder / "text.vln", "Dear all,\n");
    writeBytes(folder / "empty.vln", "");
    writeBytes(folder / "cut.vln", whole.substr(0, whole.size() / 2));
    writeBytes(folder / "old.vln", "# VELNA File Format V0.1\r\n1\r\n");
    ASSERT_EQ(::mkfifo((folder / "pipe.vln").c_str(), 0600), 0);
    const std::vector<std::pair<std::string, std::string>> cases{
        {"text", "no Velna project"},
        {"empty", "no Velna project"},
        {"cut", "not a whole project"},
        {"old", "projects of version 0.1 are not supported any more"},
        {"pipe", "not a regular file"},
        {"none", "No such file or directory"}};
    const long long before = folder.count();
    for (const auto& [name, reason] : cases) {
        const std::string file = folder / (name + ".vln");
        for (const ExportKindRow& row : exportKinds()) {
            EXPECT_EQ(run(folder / "out", row.ending, {file}), 1);
            EXPECT_EQ(complaint, "velna: " + file + ": " + reason + "\n");
        }
    }
    EXPECT_EQ(run(folder / "out", "wrl", {folder.path()}), 1);
    EXPECT_EQ(complaint, "velna: " + folder.path() + ": not a regular file\n");
    EXPECT_EQ(folder.count(), before);
    EXPECT_TRUE(tools.printed.empty());
}

TEST_F(BatchExport, EachCutOfAProjectIsWholeOrRefused) {
    const std::string whole = bytesOf(current + "wings3.vln");
    int refused = 0;
    for (std::size_t size = 0; size < whole.size(); size += 7) {
        writeBytes(folder / "cut.vln", whole.substr(0, size));
        const int status = run(folder / "out.vln", "vln", {folder / "cut.vln"});
        if (status == 1) ++refused;
        EXPECT_EQ(std::filesystem::exists(folder / "out.vln"), status == 0);
        std::filesystem::remove(folder / "out.vln");
    }
    EXPECT_GT(refused, 100);
}

TEST_F(BatchExport, OutMustBeAFileOrAFolder) {
    const std::string project = current + "default.vln";
    ASSERT_EQ(::mkfifo((folder / "pipe.wrl").c_str(), 0600), 0);
    EXPECT_EQ(run(folder / "pipe.wrl", "wrl", {project}), 1);
    EXPECT_EQ(complaint, "velna: " + folder.path() + "pipe.wrl: Invalid argument\n");
    EXPECT_EQ(run("/dev/null", "wrl", {project}), 1);
    EXPECT_EQ(complaint, "velna: /dev/null: Invalid argument\n");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_EQ(run(folder / "none/out.wrl", "wrl", {project}), 1);
    EXPECT_EQ(complaint, "velna: " + folder.path() + "none/out.wrl: No such file or directory\n");
    EXPECT_EQ(run(folder / "none/", "wrl", {project}), 1);
    EXPECT_EQ(run("/proc/out.wrl", "wrl", {project}), 1);
    EXPECT_EQ(run(folder / (std::string(300, 'a') + ".wrl"), "wrl", {project}), 1);
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(BatchExport, AFullDiskLeavesTheOldFile) {
    for (const ExportKindRow& row : exportKinds()) {
        if (row.kind == ExportKind::Plans) continue;
        const std::string file = folder / (std::string("out.") + row.ending);
        writeBytes(file, "old");
        {
            const FileSizeLimit full(500);  // more than the complaint
            EXPECT_EQ(run(file, row.ending, {current + "default.vln"}), 1);
        }
        EXPECT_EQ(complaint, "velna: " + file + ": File too large\n");
        EXPECT_EQ(bytesOf(file), "old");
    }
    EXPECT_EQ(folder.count(), 9);
}

TEST_F(BatchExport, AFuselageThatIsNotThereIsTold) {
    request.fuselage = 2;
    EXPECT_EQ(run(folder / "o.dxf", "dxf", {current + "default.vln"}), 1);
    EXPECT_EQ(complaint, "velna: " + current + "default.vln: no fuselage 2, it has 1\n");
    EXPECT_EQ(folder.count(), 0);
    EXPECT_EQ(run(folder / "o.dxf", "dxf", {current + "twin_fuselage.vln"}), 0) << complaint;
}

TEST_F(BatchExport, TheChosenFuselageIsTheCurrentOne) {
    request.view = ViewMode::HTop;
    const std::string project = current + "twin_fuselage.vln";
    EXPECT_EQ(run(folder / "1.dxf", "dxf", {project}), 0);
    request.fuselage = 2;
    EXPECT_EQ(run(folder / "2.dxf", "dxf", {project}), 0);
    EXPECT_NE(bytesOf(folder / "1.dxf"), bytesOf(folder / "2.dxf"));
}

TEST_F(BatchExport, ADrawingIsDrawnOnceAndPutInPlace) {
    EXPECT_EQ(run(folder / "o.png", "png", {current + "default.vln"}), 0);
    EXPECT_EQ(bytesOf(folder / "o.png"), std::string(1000, 'p'));
    EXPECT_GT(tools.linesDrawn, 20U);
    tools.encodeFailure = "no room";
    EXPECT_EQ(run(folder / "p.png", "png", {current + "default.vln"}), 1);
    EXPECT_EQ(complaint, "velna: " + folder.path() + "p.png: no room\n");
    tools.memory = false;
    EXPECT_EQ(run(folder / "p.png", "png", {current + "default.vln"}), 1);
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(BatchExport, PlansThatFailAreTold) {
    request.plans.Side = true;
    EXPECT_EQ(run(folder / "o.pdf", "pdf", {current + "default.vln"}), 0);
    EXPECT_EQ(tools.printed, std::vector<std::string>{folder / "o.pdf"});
    tools.printFailure = "o-side.pdf: No space left on device";
    EXPECT_EQ(run(folder / "o.pdf", "pdf", {current + "default.vln"}), 1);
    EXPECT_EQ(complaint, "velna: " + folder.path() + "o.pdf: " + tools.printFailure + "\n");
}

TEST_F(BatchExport, PlansToBeCutAreWrittenWithAWordOnWhatIsNotAsWished) {
    request.cut = CutPlan::ribs;
    EXPECT_EQ(run(folder / "o.dxf", "dxf", {current + "default.vln"}), 0);
    EXPECT_EQ(complaint, "");
    EXPECT_EQ(run(folder / "o.svg", "svg", {current + "default.vln"}), 0);
    EXPECT_NE(bytesOf(folder / "o.svg").find("mm\""), std::string::npos);
    request.plans.wishes.spars.push_back({150, 5, 5, SlotSide::top});
    EXPECT_EQ(run(folder / "o.dxf", "dxf", {current + "default.vln"}), 0);
    EXPECT_EQ(complaint.rfind("velna: " + (folder / "o.dxf: "), 0), 0U) << complaint;
    request.plans.wishes.spars.clear();
    request.plans.wishes.skin = 500;
    EXPECT_EQ(run(folder / "p.dxf", "dxf", {current + "default.vln"}), 1);
    EXPECT_NE(complaint.find("There is no rib to cut."), std::string::npos) << complaint;
    EXPECT_EQ(folder.count(), 2);
    request.plans.wishes = {};
    request.plans.wishes.each = true;
    EXPECT_EQ(run(folder / "each.dxf", "dxf", {current + "default.vln"}), 0);
    EXPECT_GT(folder.count(), 10);
}

TEST_F(BatchExport, SeveralProjectsNeedAFolder) {
    const std::vector<std::string> two{current + "default.vln", current + "wings3.vln"};
    for (const char* out : {"o.wrl", "none", "none/"}) {
        EXPECT_EQ(run(folder / out, "wrl", two), 2);
        EXPECT_EQ(complaint,
                  "velna: " + (folder / out) + ": several projects need a folder that is there\n");
    }
    EXPECT_EQ(folder.count(), 0);
}

TEST_F(BatchExport, SeveralProjectsGoUnderTheirOwnNames) {
    std::filesystem::create_directory(folder / "out");
    EXPECT_EQ(run(folder / "out", "dxf", {current + "default.vln", current + "wings3.vln"}), 0);
    EXPECT_EQ(bytesOf(folder / "out/default.dxf"), bytesOf(data + "exports/default.VTop.dxf"));
    EXPECT_EQ(bytesOf(folder / "out/wings3.dxf"), bytesOf(data + "exports/wings3.VTop.dxf"));
    EXPECT_EQ(tools.told, (std::vector<std::string>{"1/2 " + current + "default.vln",
                                                    "2/2 " + current + "wings3.vln"}));
    tools.told.clear();
    EXPECT_EQ(run(folder / "out/", "svg", {current + "default.vln"}), 0);
    EXPECT_NE(bytesOf(folder / "out/default.svg"), "");
    EXPECT_TRUE(tools.told.empty());
}

TEST_F(BatchExport, AnInterruptedBatchEndsAndIsToldOnce) {
    std::filesystem::create_directory(folder / "out");
    tools.impatient = true;
    tools.watch.patience = 2;
    const std::string project = current + "default.vln";
    EXPECT_EQ(run(folder / "out", "svg", {project, current + "wings3.vln"}), 1);
    EXPECT_EQ(complaint, "velna: " + (folder / "out") + ": interrupted\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "out"), {}), 1);
    tools.watch.patience = 0;
    EXPECT_EQ(run(folder / "out", "wrl", {project}), 1);
    EXPECT_EQ(complaint, "velna: " + (folder / "out") + ": interrupted\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "out"), {}), 1);
}

TEST_F(BatchExport, TwoProjectsOfOneNameDoNotReplaceEachOther) {
    std::filesystem::create_directory(folder / "other");
    std::filesystem::create_directory(folder / "out");
    const std::string first = current + "default.vln";
    const std::string second = folder / "other/default.vln";
    writeBytes(second, bytesOf(current + "wings3.vln"));
    EXPECT_EQ(run(folder / "out", "dxf", {first, second}), 1);
    const std::string file = folder / "out/default.dxf";
    EXPECT_EQ(complaint, "velna: " + second + ": " + file + " holds " + first + " already\n");
    EXPECT_EQ(bytesOf(file), bytesOf(data + "exports/default.VTop.dxf"));
}

TEST_F(BatchExport, OfAThousandProjectsTheTenBadOnesAreNamedAndTheRestIsDone) {
    std::filesystem::create_directory(folder / "in");
    std::filesystem::create_directory(folder / "out");
    const std::string good = bytesOf(current + "default.vln");
    std::vector<std::string> projects;
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string file = folder / ("in/" + std::to_string(i) + ".vln");
        const bool bad = i % 100 == 50;
        writeBytes(file, bad ? "nothing" : good);
        if (bad) expected += "velna: " + file + ": no Velna project\n";
        projects.push_back(file);
    }
    EXPECT_EQ(run(folder / "out", "dxf", projects), 1);
    EXPECT_EQ(complaint, expected);
    const std::string drawing = bytesOf(data + "exports/default.VTop.dxf");
    int written = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "out")) {
        ++written;
        EXPECT_EQ(bytesOf(entry.path().string()), drawing);
    }
    EXPECT_EQ(written, 990);
    EXPECT_EQ(tools.told.size(), 1000U);
}

}  // namespace
}  // namespace velna::test
