#include "output/SolidExport.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "common/MemoryEnds.h"
#include "common/ReplacedFile.h"
#include "model/SolidParts.h"
#include "output/SolidPictures.h"
#include "output/SolidWriters.h"

namespace velna {
namespace {

struct FormatRow {
    SolidFormat format;
    std::string_view extension;
    CoordinateForm form;
    bool whole;  ///< with pictures and electronics: it is to be looked at
    std::unique_ptr<SolidWriter> (*writer)(const SolidTarget& target);
};

constexpr FormatRow formats[] = {
    {SolidFormat::Stl, ".stl", CoordinateForm::Single, false, stlWriter},
    {SolidFormat::ThreeMf, ".3mf", CoordinateForm::Decimal, false, threeMfWriter},
    {SolidFormat::Obj, ".obj", CoordinateForm::Decimal, true, objWriter},
    {SolidFormat::Glb, ".glb", CoordinateForm::Single, true, glbWriter},
};

const FormatRow& rowOf(SolidFormat format) {
    return *std::ranges::find(formats, format, &FormatRow::format);
}

bool endsIn(std::string_view file, std::string_view extension) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return file.size() >= extension.size() &&
           std::ranges::equal(file.substr(file.size() - extension.size()), extension, {}, lower);
}

std::string stemOf(const std::string& file, const FormatRow& row) {
    return endsIn(file, row.extension) ? file.substr(0, file.size() - row.extension.size()) : file;
}

/// The file of one part.
std::string fileOf(const std::string& file, const FormatRow& row, std::string part) {
    std::ranges::replace(part, ' ', '-');
    return stemOf(file, row).append("-").append(part).append(row.extension);
}

class IntoFile : public ByteSink {
public:
    explicit IntoFile(ReplacedFile& file) : file_(file) {}
    void append(std::string_view bytes) override { file_.append(bytes); }
    void overwrite(std::size_t at, std::string_view bytes) override { file_.overwrite(at, bytes); }
    void fail(const std::string& reason) override { file_.fail(reason); }

private:
    ReplacedFile& file_;
};

/// The bytes of a file that goes beside the first one.
class IntoMemory : public ByteSink {
public:
    explicit IntoMemory(ReplacedFile& first) : first_(first) {}
    void append(std::string_view bytes) override { bytes_.append(bytes); }
    void overwrite(std::size_t at, std::string_view bytes) override {
        bytes_.replace(at, bytes.size(), bytes);
    }
    void fail(const std::string& reason) override { first_.fail(reason); }
    const std::string& bytes() const { return bytes_; }

private:
    ReplacedFile& first_;
    std::string bytes_;
};

PartsOrder orderFor(const FormatRow& row, const SolidOptions& options) {
    return {{row.form, row.whole}, options.cut, row.whole};
}

/// "wing 1 left (no length), fin (no thickness) and 2 others"
std::string listed(const std::vector<RefusedPart>& refused) {
    constexpr std::size_t most = 6;
    std::string text;
    const std::size_t told = std::min(most, refused.size());
    for (std::size_t n = 0; n < told; ++n) {
        if (n > 0) text += ", ";
        text += refused[n].name + " (" + refused[n].why + ")";
    }
    if (refused.size() > told) text += " and " + std::to_string(refused.size() - told) + " more";
    return text;
}

/// One run of the command.
class SolidExport {
public:
    SolidExport(const Project& project, SolidFormat format, const SolidOptions& options,
                const std::string& file, PictureStore& store, Progress* watcher)
        : project_(project),
          row_(rowOf(format)),
          options_(options),
          path_(file),
          store_(store),
          work_(watcher, 3 * solidPoints(project)),
          pictures_(store.imaging) {}

    Outcome run() {
        if (!options_.each && !begin(path_)) return Outcome::failed(file_->giveUp());
        PartsOrder order = orderFor(row_, options_);
        order.solid.goesOn = [this](long long points) { return work_.did(points); };
        std::vector<RefusedPart> refused;
        const Outcome outcome = forEachSolidPart(
            project_, order, [this](const SolidPart& part) { return take(part); }, refused);
        if (file_ && !file_->error().empty()) return Outcome::failed(file_->giveUp());
        if (work_.cancelled() || outcome.isCancelled()) return Outcome::cancelled();
        if (parts_ == 0) {
            return Outcome::failed("No part of the aircraft gives a solid: " + listed(refused) +
                                   ".");
        }
        return finish(refused);
    }

private:
    /// Opens the file that the others go beside.
    bool begin(const std::string& path) {
        file_.emplace(path);
        if (!file_->error().empty()) return false;
        materials_.emplace(*file_, stemOf(path_, row_), project_, store_);
        first_.emplace(*file_);
        writer_ = row_.writer(targetFor(*first_));
        return true;
    }

    SolidTarget targetFor(ByteSink& sink) { return {sink, pictures_, *materials_, work_}; }

    bool take(const SolidPart& part) {
        const std::string path = options_.each ? fileOf(path_, row_, part.name) : path_;
        if (!file_ && !begin(path)) return false;
        ++parts_;
        if (!options_.each || parts_ == 1) {
            writer_->add(part);
        } else {
            IntoMemory sink(*file_);
            const auto writer = row_.writer(targetFor(sink));
            writer->add(part);
            writer->end();
            file_->beside(path, sink.bytes());
        }
        return !work_.cancelled() && file_->error().empty();
    }

    Outcome finish(const std::vector<RefusedPart>& refused) {
        writer_->end();
        if (row_.format == SolidFormat::Obj) materials_->putBeside();
        file_->commit();
        if (file_->inPlace()) materials_->madeHere();
        if (!file_->error().empty()) return Outcome::failed(file_->error());
        std::string left = refused.empty() ? "" : "Left out: " + listed(refused) + ".";
        for (const std::string& missing : {materials_->missing(), pictures_.missing()}) {
            if (missing.empty() || left.ends_with(missing)) continue;
            left.append(left.empty() ? "" : " ").append(missing);
            break;
        }
        return left.empty() ? Outcome() : Outcome::failed(left + " All else has been exported.");
    }

    const Project& project_;
    const FormatRow& row_;
    SolidOptions options_;
    std::string path_;
    PictureStore& store_;
    Work work_;
    SolidPictures pictures_;
    std::optional<ReplacedFile> file_;
    std::optional<IntoFile> first_;
    std::optional<ObjMaterials> materials_;
    std::unique_ptr<SolidWriter> writer_;
    int parts_ = 0;
};

}  // namespace

std::optional<SolidFormat> solidFormatOf(std::string_view file) {
    for (const FormatRow& row : formats)
        if (endsIn(file, row.extension)) return row.format;
    return {};
}

namespace Plane {

Outcome exportSolids(const Project& project, SolidFormat format, const SolidOptions& options,
                     const std::string& file, PictureStore& pictures, Progress* watcher) {
    return failedIfMemoryEnds(
        [&] { return SolidExport(project, format, options, file, pictures, watcher).run(); });
}

std::vector<std::string> solidFiles(const Project& project, SolidFormat format,
                                    const SolidOptions& options, const std::string& file) {
    const FormatRow& row = rowOf(format);
    std::vector<std::string> files;
    std::vector<RefusedPart> refused;
    const auto note = [&](const SolidPart& part) {
        files.push_back(fileOf(file, row, part.name));
        return true;
    };
    const Outcome outcome = forEachSolidPart(project, orderFor(row, options), note, refused);
    return outcome.isDone() ? files : std::vector<std::string>{};
}

}  // namespace Plane
}  // namespace velna
