#include "Projects.h"
#include "persistence/PictureFiles.h"
#include "persistence/RecoveryFile.h"
#include "support/FileSizeLimit.h"
#include "support/SameBytes.h"
#include "support/StruckCalls.h"

namespace velna::test {
namespace {

class RecoveryFileOf : public ProjectTest {
protected:
    std::string path() const { return folder / "work"; }

    /// The bytes of the project in hand as a recovery file.
    std::string kept(const std::string& name = "/models/glider.vln") {
        EXPECT_EQ(RecoveryFile::write({project, name}, path()).reason(), "");
        return bytesOf(path());
    }
    static std::string refusal(const std::string& bytes) {
        try {
            RecoveryFile::readBytes(bytes);
        } catch (const ReadFailure& failure) {
            return failure.what();
        }
        return {};
    }
};

TEST_F(RecoveryFileOf, EveryKindOfProjectComesBackAsSavingAndOpeningGivesIt) {
    for (const std::string& name : namesIn(projectData + "current/", ".vln")) {
        resetModel();
        ASSERT_EQ(readFile(projectData + "current/" + name + ".vln"), "");
        kept();
        UnsavedWork work = RecoveryFile::read(path());
        EXPECT_EQ(work.name, "/models/glider.vln");
        EXPECT_EQ(work.project.projectDirectory, project.projectDirectory);
        const std::string before = savedBytes();
        project = work.project;
        EXPECT_TRUE(sameBytes(savedBytes(), before)) << name;
    }
}

TEST_F(RecoveryFileOf, PicturesKeepTheirFullNamesAndTitlesWhateverBytesTheyHave) {
    const std::string odd = std::string("/a\nb\r\n\"c\",\xfc\0d", 14) + "/e.bmp";
    Wings(1).set_texture_filename(odd);
    Wings(1).qualified_texture_filename = "e.bmp";
    Rudder.texture_filename = "/fin.png";
    Rudder.qualified_texture_filename = "sub/fin.png";
    project.projectDirectory = "/x\n/";
    kept(odd);
    const UnsavedWork work = RecoveryFile::read(path());
    EXPECT_EQ(work.name, odd);
    EXPECT_EQ(work.project.projectDirectory, "/x\n/");
    EXPECT_EQ(PictureFiles::picturesOf(work.project), PictureFiles::picturesOf(project));
    EXPECT_EQ(work.project.Rudder.texture_filename, "/fin.png");
    // No picture is put beside it.
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(RecoveryFileOf, OneWithPicturesIsReadToItsLastLine) {
    Wings(1).set_texture_filename("/wing.bmp");
    Rudder.texture_filename = "/fin.png";
    kept();
    testing::internal::CaptureStderr();
    RecoveryFile::read(path());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "nothing was missing";
}

TEST_F(RecoveryFileOf, WritingLeavesTheProjectAsItIs) {
    const Project before = project;
    kept();
    EXPECT_TRUE(project == before);
}

TEST_F(RecoveryFileOf, OneThatWasCutAnywhereIsRefused) {
    const std::string whole = kept();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const std::string reason = refusal(whole.substr(0, size));
        ASSERT_TRUE(reason == "it is not complete" || reason == "it is no recovery file" ||
                    reason == "another version of Velna has written it")
            << size << ' ' << reason;
    }
    EXPECT_EQ(refusal(whole), "");
    EXPECT_EQ(refusal(whole + "\r\n"), "it is not complete");
}

TEST_F(RecoveryFileOf, OneWithAnyByteChangedIsRefused) {
    const std::string whole = kept();
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string noisy = whole;
        noisy[i] = static_cast<char>(noisy[i] ^ 0x10);
        ASSERT_NE(refusal(noisy), "") << i;
    }
}

TEST_F(RecoveryFileOf, AnotherVersionAndAnythingElseAreToldApart) {
    std::string other = kept();
    other[other.find('1')] = '2';
    EXPECT_EQ(refusal(other), "another version of Velna has written it");
    EXPECT_EQ(refusal(savedBytes()), "it is no recovery file");
    EXPECT_EQ(refusal(std::string(5000, '\xff')), "it is no recovery file");
    EXPECT_EQ(refusal({}), "it is no recovery file");
}

TEST_F(RecoveryFileOf, LengthsThatPromiseMoreThanThereIsAreRefused) {
    // A file made so on purpose, with its sum.
    const std::string whole = kept();
    for (const std::string length : {"999999999999", "18446744073709551615", "-1", "", "1e3"}) {
        std::string bytes = whole.substr(0, whole.size() - 24);
        const auto at = bytes.find("\r\n") + 2;
        bytes.replace(at, bytes.find("\r\n", at) - at, length);
        std::uint64_t sum = 0xcbf29ce484222325;
        for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3;
        char tail[32];
        std::snprintf(tail, sizeof tail, "# Sum %016llx\r\n", static_cast<unsigned long long>(sum));
        EXPECT_EQ(refusal(bytes + tail), "it is damaged") << length;
    }
}

TEST_F(RecoveryFileOf, AFileThatCannotBeReadSaysWhy) {
    EXPECT_THROW(RecoveryFile::read(folder / "missing"), ReadFailure);
    EXPECT_THROW(RecoveryFile::read(folder.path()), ReadFailure);
}

TEST_F(RecoveryFileOf, AFullDiskLeavesTheFormerWorkWhole) {
    const std::string before = kept();
    Wings(1).span = 1;
    {
        const FileSizeLimit full(100);
        EXPECT_EQ(RecoveryFile::write({project, {}}, path()).reason(), "File too large");
    }
    EXPECT_EQ(bytesOf(path()), before);
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(RecoveryFileOf, WhateverCallFailsTheFormerWorkOrTheNewStandsWhole) {
    const std::string before = kept();
    Wings(1).span = 1;
    const std::string after = kept();
    int failures = 0;
    const int calls = callsOf([&] { kept(); });
    for (int number = 1; number <= calls; ++number) {
        writeBytes(path(), before);
        std::string reason;
        {
            const StruckCalls struck({number});
            reason = RecoveryFile::write({project, "/models/glider.vln"}, path()).reason();
        }
        const bool isNew = bytesOf(path()) == after;
        EXPECT_TRUE(isNew || bytesOf(path()) == before) << number;
        EXPECT_TRUE(isNew || !reason.empty()) << number;
        failures += !isNew;
    }
    EXPECT_GT(failures, 3);
}

}  // namespace
}  // namespace velna::test
