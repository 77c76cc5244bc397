// OBJ: points, places in pictures and faces as lines of text, counted through the whole file; the
// materials stand in a file beside it.

#include <algorithm>

#include "common/NumberText.h"
#include "common/Version.h"
#include "output/SinkText.h"
#include "output/SolidPictures.h"
#include "output/SolidWriters.h"

namespace velna {
namespace {

constexpr std::size_t linesAtOnce = 1024;

/// A name without blanks: readers take what stands before one.
std::string oneWord(std::string name) {
    std::ranges::replace(name, ' ', '_');
    return name;
}

class ObjWriter : public SolidWriter {
public:
    explicit ObjWriter(const SolidTarget& target) : target_(target), text_(target.file) {
        text_.buffer().append("# Velna ").append(versionText).append(", millimetres\nmtllib ");
        text_.buffer().append(target_.materials.title()).append("\n");
    }

    void add(const SolidPart& part) override {
        text_.buffer().append("o ").append(oneWord(part.name)).append("\n");
        for (const Point3D& p : part.solid.points) {
            coordinates("v", {p.x, p.y, p.z});
            if (!counted()) return;
        }
        for (const PartSkin& skin : part.skins) addSkin(part, skin);
        points_ += static_cast<long long>(part.solid.points.size());
    }

    void end() override { text_.finish(); }

private:
    /// One line more; false once the user has cancelled.
    bool counted() {
        if (++lines_ % linesAtOnce == 0) {
            target_.work.did(linesAtOnce);
            text_.flushIfFull();
        }
        return !target_.work.cancelled();
    }

    void coordinates(std::string_view word, std::initializer_list<double> values) {
        text_.buffer().append(word);
        for (const double value : values) {
            text_.buffer() += ' ';
            appendNumber(text_.buffer(), value);
        }
        text_.buffer() += '\n';
    }

    void addSkin(const SolidPart& part, const PartSkin& skin) {
        text_.buffer().append("usemtl ").append(target_.materials.nameOf(skin)).append("\n");
        const auto places = target_.pictures.placesOf(skin);
        for (const Point2D& place : places) {
            coordinates("vt", {place.x, place.y});
            if (!counted()) return;
        }
        for (std::size_t i = skin.first; i < skin.end; ++i) {
            text_.buffer() += 'f';
            for (std::size_t n = 0; n < part.solid.triangles[i].size(); ++n) {
                text_.buffer() += ' ';
                appendInteger(text_.buffer(), points_ + part.solid.triangles[i][n] + 1);
                if (places.empty()) continue;
                text_.buffer() += '/';
                appendInteger(text_.buffer(),
                              places_ + part.solid.sources[i][n] - skin.firstSource + 1);
            }
            text_.buffer() += '\n';
            if (!counted()) return;
        }
        places_ += static_cast<long long>(places.size());
    }

    SolidTarget target_;
    SinkText text_;
    long long points_ = 0;
    long long places_ = 0;
    std::size_t lines_ = 0;
};

}  // namespace

std::unique_ptr<SolidWriter> objWriter(const SolidTarget& target) {
    return std::make_unique<ObjWriter>(target);
}

}  // namespace velna
