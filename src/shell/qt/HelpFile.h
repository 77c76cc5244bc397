#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

namespace velna {

/// One page of the help, or a heading between pages in the list of contents.
struct HelpPage {
    QString name;   ///< without folder and ".html"; empty for a heading
    QString title;  ///< as the list of contents calls it
    QString text;   ///< what the search looks through, in lower case
};

/// The help file: pages and pictures in one Qt binary resource, followed by its SHA-256 as 64
/// letters. The sum is looked at first, since a resource with a wrong offset could be read beyond
/// its end.
class HelpFile {
public:
    HelpFile() = default;
    HelpFile(const HelpFile&) = delete;
    HelpFile& operator=(const HelpFile&) = delete;
    ~HelpFile();

    /// Reads the file and lists its pages. False if it is missing or damaged; then there are no
    /// pages.
    bool open(const std::string& file);
    void close();

    /// Pages and headings in the order of the list of contents, the list itself first.
    const std::vector<HelpPage>& pages() const { return pages_; }
    bool has(const QString& name) const;

    /// Where a page lies for whoever shows it.
    static QString address(const QString& name);
    /// The name of the page at an address.
    static QString nameOf(const QString& address);

private:
    void readContents();

    QByteArray data_;  ///< the registered resource lives in here
    std::vector<HelpPage> pages_;
};

/// The places in `pages` whose text has every word of `words`; headings never do.
std::vector<int> pagesWith(const std::vector<HelpPage>& pages, const QStringList& words);

}  // namespace velna
