#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "shell/qt/HelpFile.h"

using namespace velna;

namespace {

QByteArray shipped() {
    QFile file(VELNA_HELP);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

std::string written(const QTemporaryDir& folder, const QByteArray& data) {
    const QString name = folder.filePath("Velna.HLP");
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(data);
    return name.toStdString();
}

QString resource(const QString& path) {
    QFile file(":/velna-help/" + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

TEST(HelpFile, ListsEveryPageOfTheContents) {
    HelpFile help;
    ASSERT_TRUE(help.open(VELNA_HELP));
    EXPECT_EQ(help.pages().front().name, "index");
    for (const char* page : {"first-flight", "mouse-and-keys", "files", "tab-wing", "print"}) {
        EXPECT_TRUE(help.has(page)) << page;
    }
    EXPECT_FALSE(help.has("nowhere"));
    EXPECT_FALSE(help.has(""));
}

TEST(HelpFile, EveryLinkAndPictureLeadsSomewhere) {
    HelpFile help;
    ASSERT_TRUE(help.open(VELNA_HELP));
    static const QRegularExpression target(QStringLiteral("(?:href|src)=\"([^\"]+)\""));
    int seen = 0;
    for (const HelpPage& page : help.pages()) {
        if (page.name.isEmpty()) continue;
        auto matches = target.globalMatch(resource(page.name + ".html"));
        while (matches.hasNext()) {
            const QString path = matches.next().captured(1);
            EXPECT_TRUE(QFile::exists(":/velna-help/" + path))
                << qPrintable(page.name + ": " + path);
            ++seen;
        }
    }
    EXPECT_GT(seen, 60);
}

TEST(HelpFile, EveryPageHasATitleAndText) {
    HelpFile help;
    ASSERT_TRUE(help.open(VELNA_HELP));
    for (const HelpPage& page : help.pages()) {
        EXPECT_FALSE(page.title.isEmpty());
        if (page.name.isEmpty()) continue;
        EXPECT_GT(page.text.size(), 60) << qPrintable(page.name);
    }
}

TEST(HelpFile, SearchWantsEveryWordAndIgnoresCase) {
    const std::vector<HelpPage> pages = {
        {"a", "A", "the wing tip"}, {{}, "Heading", "wing"}, {"b", "B", "wing"}};
    EXPECT_EQ(pagesWith(pages, {"WING"}), (std::vector<int>{0, 2}));
    EXPECT_EQ(pagesWith(pages, {"wing", "tip"}), (std::vector<int>{0}));
    EXPECT_TRUE(pagesWith(pages, {"rudder"}).empty());
}

TEST(HelpFile, RefusesAMissingOrEmptyFile) {
    const QTemporaryDir folder;
    HelpFile help;
    EXPECT_FALSE(help.open(folder.filePath("absent.HLP").toStdString()));
    EXPECT_FALSE(help.open(folder.path().toStdString()));
    EXPECT_FALSE(help.open(written(folder, {})));
    EXPECT_TRUE(help.pages().empty());
}

TEST(HelpFile, RefusesAFileThatIsCutOrChangedAnywhere) {
    const QTemporaryDir folder;
    const QByteArray whole = shipped();
    HelpFile help;
    for (const qsizetype cut :
         {qsizetype{1}, qsizetype{64}, qsizetype{65}, whole.size() / 2, whole.size() - 1}) {
        EXPECT_FALSE(help.open(written(folder, whole.first(cut)))) << cut;
    }
    for (qsizetype at = 0; at < whole.size(); at += whole.size() / 37 + 1) {
        QByteArray changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0x20);
        EXPECT_FALSE(help.open(written(folder, changed))) << at;
    }
    EXPECT_FALSE(help.open(written(folder, whole + "more")));
    EXPECT_TRUE(help.open(written(folder, whole)));
}

TEST(HelpFile, CanBeOpenedAgainAfterAFailure) {
    const QTemporaryDir folder;
    HelpFile help;
    EXPECT_FALSE(help.open(written(folder, "no help")));
    EXPECT_TRUE(help.open(VELNA_HELP));
    EXPECT_TRUE(help.has("index"));
    help.close();
    EXPECT_TRUE(help.pages().empty());
}

TEST(HelpFile, NamesItsAddresses) {
    EXPECT_EQ(HelpFile::nameOf(HelpFile::address("tab-wing")), "tab-wing");
    EXPECT_EQ(HelpFile::nameOf("qrc:/velna-help/print.html#sheets"), "print");
}
