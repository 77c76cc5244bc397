#include "persistence/RecoveryFile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

#include "common/Complaint.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "model/Plane.h"
#include "persistence/PictureFiles.h"
#include "persistence/ProjectFile.h"
#include "persistence/RecordFields.h"

namespace velna::RecoveryFile {

namespace {

constexpr std::string_view anyHead = "# VELNA Recovery V";
constexpr std::string_view head = "# VELNA Recovery V 1\r\n";
constexpr std::string_view tailHead = "# Sum ";
constexpr std::size_t tailSize = tailHead.size() + 16 + 2;  // sixteen digits and a line end

/// The sum over a file's bytes, in any portions.
/// Source: the FNV-1a hash of 64 bits by Fowler, Noll and Vo.
class Sum {
public:
    void add(std::string_view bytes) {
        for (const char c : bytes)
            value_ = (value_ ^ static_cast<unsigned char>(c)) * std::uint64_t{0x100000001b3};
    }
    /// The line behind what has been added.
    std::string tail() const {
        std::string digits(16, '0');
        char text[16];
        const auto* const end = std::to_chars(text, text + sizeof text, value_, 16).ptr;
        const auto count = static_cast<std::size_t>(end - text);
        digits.replace(digits.size() - count, count, text, count);
        return std::string(tailHead) + digits + "\r\n";
    }

private:
    std::uint64_t value_ = 0xcbf29ce484222325;
};

/// Hands what it takes on to a file, and sums it up.
class SummedFile : public TextSink {
public:
    explicit SummedFile(ReplacedFile& file) : file_(file) {}

    /// The last line.
    void finish() {
        flush();
        file_.buffer() += sum_.tail();
    }

protected:
    void flush() override {
        sum_.add(buffer());
        file_.buffer() += buffer();
        buffer().clear();
        file_.flushIfFull();
    }

private:
    ReplacedFile& file_;
    Sum sum_;
};

/// A text of any bytes: its length on a line, and the text on the next.
void saveBytes(TextSink& file, std::string_view text) {
    saveInteger(file, static_cast<long long>(text.size()));
    file.line(text);
    file.flushIfFull();
}

/// What stands between head and tail, from the front.
class Contents {
public:
    explicit Contents(std::string_view bytes) : rest_(bytes) {}

    std::size_t count() {
        const auto end = rest_.find("\r\n");
        if (end == std::string_view::npos) throw ReadFailure("it is damaged");
        std::size_t number = 0;
        const auto* const last = rest_.data() + end;
        const auto result = std::from_chars(rest_.data(), last, number);
        if (result.ec != std::errc{} || result.ptr != last) throw ReadFailure("it is damaged");
        rest_.remove_prefix(end + 2);
        return number;
    }
    std::string text() {
        const std::size_t size = count();
        if (size > rest_.size() || rest_.size() - size < 2) throw ReadFailure("it is damaged");
        std::string text(rest_.substr(0, size));
        rest_.remove_prefix(size + 2);
        return text;
    }
    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

void save(TextSink& file, const UnsavedWork& work) {
    file.buffer() += head;
    saveBytes(file, work.name);
    saveBytes(file, work.project.projectDirectory);
    const auto pictures = PictureFiles::picturesOf(work.project);
    saveInteger(file, static_cast<long long>(pictures.size()));
    for (const auto& picture : pictures) {
        saveBytes(file, picture.file);
        saveBytes(file, picture.title);
    }
    Plane::saveBlocks(file, work.project);
    // A project ends with its pictures' titles: they stand before it, where they may hold any byte.
    for (std::size_t i = 0; i < pictures.size(); ++i) saveText(file, {});
}

/// The bytes between the first and the last line of a whole file.
std::string_view checkedContents(std::string_view bytes) {
    if (!bytes.starts_with(anyHead)) throw ReadFailure("it is no recovery file");
    if (!bytes.starts_with(head)) throw ReadFailure("another version of Velna has written it");
    const auto end = bytes.size() - std::min(bytes.size(), tailSize);
    if (end < head.size() || !bytes.substr(end).starts_with(tailHead))
        throw ReadFailure("it is not complete");
    Sum sum;
    sum.add(bytes.substr(0, end));
    if (bytes.substr(end) != sum.tail()) throw ReadFailure("it is damaged");
    return bytes.substr(head.size(), end - head.size());
}

}  // namespace

Outcome write(const UnsavedWork& work, const std::string& file) {
    ReplacedFile target(file, Links::replaced);
    SummedFile summed(target);
    save(summed, work);
    summed.finish();
    return target.commit() ? Outcome() : Outcome::failed(target.error());
}

UnsavedWork readBytes(std::string_view bytes) {
    Contents contents(checkedContents(bytes));
    UnsavedWork work;
    work.name = contents.text();
    const std::string folder = contents.text();
    std::vector<PictureFiles::PictureName> pictures;
    for (std::size_t left = contents.count(); left > 0; --left) {
        std::string file = contents.text();
        pictures.push_back({std::move(file), contents.text()});
    }
    Plane::setDefaultPlane(work.project);
    try {
        Plane::readProjectBytes(work.project, contents.rest());
    } catch (const ReadFailure& failure) {
        // As of any project: what was read so far stands.
        complain("unsaved work", failure.what());
    }
    work.project.projectDirectory = folder;
    PictureFiles::setPictures(work.project, pictures);
    return work;
}

UnsavedWork read(const std::string& file) {
    return readBytes(readWholeFile(file));
}

}  // namespace velna::RecoveryFile
