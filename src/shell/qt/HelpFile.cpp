#include "shell/qt/HelpFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QResource>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>
#include <cstdio>

namespace velna {
namespace {

const QString root = QStringLiteral("/velna-help");
constexpr qsizetype sumLength = 64;

const uchar* bytes(const QByteArray& data) {
    return reinterpret_cast<const uchar*>(data.constData());
}

QString readText(const QString& name) {
    QFile page(":" + root + "/" + name + ".html");
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

QString plainText(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

}  // namespace

HelpFile::~HelpFile() {
    close();
}

void HelpFile::close() {
    if (!data_.isEmpty()) QResource::unregisterResource(bytes(data_), root);
    data_.clear();
    pages_.clear();
}

bool HelpFile::open(const std::string& file) {
    close();
    // Opened by its bytes: the folder's name need not be a text.
    std::FILE* const stream = std::fopen(file.c_str(), "rb");
    QFile input;
    if (!stream || !input.open(stream, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return false;
    QByteArray data = input.readAll();
    if (data.size() <= sumLength) return false;
    const QByteArray sum = data.right(sumLength);
    data.chop(sumLength);
    if (QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex() != sum) return false;

    data_ = data;
    if (!QResource::registerResource(bytes(data_), root)) {
        data_.clear();
        return false;
    }
    readContents();
    return true;
}

// The first page is the list of contents for the reader, and for the window too: its headings and
// links in their order.
void HelpFile::readContents() {
    static const QRegularExpression entry(
        QStringLiteral("<h2[^>]*>(.*?)</h2>|<a href=\"([\\w-]+)\\.html\">(.*?)</a>"),
        QRegularExpression::DotMatchesEverythingOption);
    const QString index = readText("index");
    pages_.push_back({"index", QStringLiteral("Contents"), plainText(index).toLower()});
    auto matches = entry.globalMatch(index);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString name = match.captured(2);
        if (name.isEmpty()) {
            pages_.push_back({{}, plainText(match.captured(1)), {}});
        } else if (!has(name)) {
            pages_.push_back(
                {name, plainText(match.captured(3)), plainText(readText(name)).toLower()});
        }
    }
}

bool HelpFile::has(const QString& name) const {
    return !name.isEmpty() && std::any_of(pages_.begin(), pages_.end(),
                                          [&](const HelpPage& page) { return page.name == name; });
}

QString HelpFile::address(const QString& name) {
    return "qrc:" + root + "/" + name + ".html";
}

QString HelpFile::nameOf(const QString& address) {
    return QFileInfo(QUrl(address).path()).completeBaseName();
}

std::vector<int> pagesWith(const std::vector<HelpPage>& pages, const QStringList& words) {
    std::vector<int> found;
    for (int at = 0; at < static_cast<int>(pages.size()); ++at) {
        const HelpPage& page = pages[static_cast<std::size_t>(at)];
        const bool all = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return page.text.contains(word.toLower());
        });
        if (!page.name.isEmpty() && all) found.push_back(at);
    }
    return found;
}

}  // namespace velna
