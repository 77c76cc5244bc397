// 3MF: an archive with one description of all parts. (3MF Consortium, 3D Manufacturing Format,
// core part, 1.2.)

#include <algorithm>
#include <array>
#include <cmath>

#include "common/NumberText.h"
#include "common/Version.h"
#include "output/SolidPictures.h"
#include "output/SolidWriters.h"
#include "output/ZipFile.h"

namespace velna {
namespace {

constexpr const char* contentTypes =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Default Extension="model" ContentType="application/vnd.ms-package.3dmanufacturing-3dmodel+xml"/>
</Types>
)";
constexpr const char* relationships =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Target="/3D/3dmodel.model" Id="model" Type="http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"/>
</Relationships>
)";
constexpr const char* modelHead =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<model unit="millimeter" xml:lang="en-US" xmlns="http://schemas.microsoft.com/3dmanufacturing/core/2015/02">
<metadata name="Application">Velna )";

constexpr std::size_t linesAtOnce = 1024;
constexpr std::size_t blockSize = 65536;

/// "#C8C8C8"
std::string colourText(const Point3D& color) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const double value : {color.x, color.y, color.z}) {
        const int byte = static_cast<int>(std::lround(std::clamp(value, 0.0, 255.0)));
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}

class ThreeMfWriter : public SolidWriter {
public:
    explicit ThreeMfWriter(const SolidTarget& target) : target_(target), zip_(target.file) {
        whole("[Content_Types].xml", contentTypes);
        whole("_rels/.rels", relationships);
        zip_.begin("3D/3dmodel.model");
        text_.append(modelHead).append(versionText).append("</metadata>\n<resources>\n");
    }

    /// The part's colours, and its object, which has the first of them unless a triangle tells
    /// another. All names are the program's own: nothing in them needs to be escaped.
    void add(const SolidPart& part) override {
        const std::string colours = std::to_string(++lastId_);
        text_.append("<basematerials id=\"").append(colours).append("\">");
        for (const PartSkin& skin : part.skins) {
            text_.append("<base name=\"").append(part.name).append("\" displaycolor=\"");
            text_.append(colourText(skin.color)).append("\"/>");
        }
        const std::string object = std::to_string(++lastId_);
        text_.append("</basematerials>\n<object id=\"").append(object);
        text_.append("\" type=\"model\" name=\"").append(part.name).append("\" pid=\"");
        text_.append(colours).append("\" pindex=\"0\"><mesh><vertices>\n");
        addPoints(part.solid);
        text_.append("</vertices><triangles>\n");
        for (std::size_t n = 0; n < part.skins.size(); ++n) {
            const std::string own =
                n == 0 ? "" : "\" pid=\"" + colours + "\" p1=\"" + std::to_string(n);
            addTriangles(part.solid, part.skins[n], own);
        }
        text_.append("</triangles></mesh></object>\n");
        items_.append("<item objectid=\"").append(object).append("\"/>\n");
    }

    void end() override {
        text_.append("</resources>\n<build>\n").append(items_).append("</build>\n</model>\n");
        flush();
        zip_.endEntry();
        zip_.end();
    }

private:
    void whole(const char* name, const char* bytes) {
        zip_.begin(name);
        zip_.append(bytes);
        zip_.endEntry();
    }

    void flush() {
        zip_.append(text_);
        text_.clear();
    }

    /// One line more; false once the user has cancelled.
    bool counted() {
        if (++lines_ % linesAtOnce == 0) target_.work.did(linesAtOnce);
        if (text_.size() >= blockSize) flush();
        return !target_.work.cancelled();
    }

    void addPoints(const ClosedSolid& solid) {
        for (const Point3D& point : solid.points) {
            appendNumber(text_.append("<vertex x=\""), point.x);
            appendNumber(text_.append("\" y=\""), point.y);
            appendNumber(text_.append("\" z=\""), point.z);
            text_.append("\"/>\n");
            if (!counted()) return;
        }
    }

    void addTriangles(const ClosedSolid& solid, const PartSkin& skin, const std::string& own) {
        for (std::size_t i = skin.first; i < skin.end; ++i) {
            appendInteger(text_.append("<triangle v1=\""), solid.triangles[i][0]);
            appendInteger(text_.append("\" v2=\""), solid.triangles[i][1]);
            appendInteger(text_.append("\" v3=\""), solid.triangles[i][2]);
            text_.append(own).append("\"/>\n");
            if (!counted()) return;
        }
    }

    SolidTarget target_;
    ZipFile zip_;
    std::string text_;
    std::string items_;
    int lastId_ = 0;
    std::size_t lines_ = 0;
};

}  // namespace

std::unique_ptr<SolidWriter> threeMfWriter(const SolidTarget& target) {
    return std::make_unique<ThreeMfWriter>(target);
}

}  // namespace velna
