// glTF 2.0 in its binary form: a head, a description in JSON, and one block of numbers and
// pictures. Lengths are metres and y is up; the numbers stay the model's, and the root turns and
// scales them. (Khronos Group, glTF 2.0; ISO/IEC 12113.)

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <vector>

#include "common/NumberText.h"
#include "common/Version.h"
#include "output/SolidPictures.h"
#include "output/SolidWriters.h"

namespace velna {
namespace {

static_assert(std::endian::native == std::endian::little, "glTF has the lowest byte first");

// The format's own numbers.
constexpr int floats = 5126;
constexpr int wholes = 5125;  // of 32 bits
constexpr int pointsTarget = 34962;
constexpr int indicesTarget = 34963;
constexpr int clampToEdge = 33071;
constexpr int repeat = 10497;
constexpr std::uint32_t glb = 0x46546C67;
constexpr std::uint32_t jsonChunk = 0x4E4F534A;
constexpr std::uint32_t binaryChunk = 0x004E4942;
constexpr std::size_t largest = std::size_t{1} << 31U;  // bytes of all numbers and pictures

/// A list in JSON that grows an entry at a time.
class JsonList {
public:
    /// Adds an entry and gives its place.
    std::size_t add(const std::string& entry) {
        if (count_ > 0) text_ += ',';
        text_ += entry;
        return count_++;
    }
    /// The list as a member of an object; nothing where it is empty, which the format forbids.
    std::string member(const char* name) const {
        if (count_ == 0) return {};
        return std::string(",\"").append(name).append("\":[").append(text_).append("]");
    }

private:
    std::string text_;
    std::size_t count_ = 0;
};

std::string number(const char* name, std::size_t value) {
    return std::string("\"").append(name).append("\":").append(std::to_string(value));
}

/// A component from 0 to 255 as light: the format's colours are linear. (IEC 61966-2-1)
double light(double value) {
    const double share = std::clamp(value / 255, 0.0, 1.0);
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

using Vector = std::array<float, 3>;

Vector vectorOf(const Point3D& p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
}

std::string listOf(const Vector& vector) {
    return "[" + numberText(vector[0]) + "," + numberText(vector[1]) + "," + numberText(vector[2]) +
           "]";
}

class GlbWriter : public SolidWriter {
public:
    explicit GlbWriter(const SolidTarget& target) : target_(target) {}

    void add(const SolidPart& part) override {
        std::vector<Vector> points;
        std::ranges::transform(part.solid.points, std::back_inserter(points), vectorOf);
        std::size_t shared = none;
        std::string primitives;
        for (const PartSkin& skin : part.skins) {
            if (!primitives.empty()) primitives += ',';
            const auto places = target_.pictures.placesOf(skin);
            if (places.empty()) {
                if (shared == none) shared = addPoints(points);
                primitives += plain(part, skin, shared);
            } else {
                primitives += pictured(part, skin, places);
            }
            if (!target_.work.did(static_cast<long long>(skin.end - skin.first))) return;
        }
        if (binary_.size() > largest)
            return target_.file.fail("Larger than such a file should be.");
        const std::size_t mesh =
            meshes_.add("{\"name\":\"" + part.name + "\",\"primitives\":[" + primitives + "]}");
        nodes_.add("{\"name\":\"" + part.name + "\"," + number("mesh", mesh) + "}");
        children_.add(std::to_string(++parts_));
    }

    void end() override {
        // A quarter turn about x brings z up to y.
        std::string json = "{\"asset\":{\"version\":\"2.0\",\"generator\":\"Velna " +
                           std::string(versionText) +
                           "\"},\"scene\":0,\"scenes\":[{\"nodes\":[0]}],"
                           "\"nodes\":[{\"name\":\"aircraft\",\"scale\":[0.001,0.001,0.001],"
                           "\"rotation\":[-0.707106781186548,0,0,0.707106781186548]" +
                           children_.member("children") + "}," +
                           nodes_.member("").substr(std::string_view(",\"\":[").size());
        for (const auto& [name, list] :
             std::initializer_list<std::pair<const char*, JsonList*>>{{"meshes", &meshes_},
                                                                      {"materials", &materials_},
                                                                      {"textures", &textures_},
                                                                      {"samplers", &samplers_},
                                                                      {"images", &images_},
                                                                      {"accessors", &accessors_},
                                                                      {"bufferViews", &views_}})
            json += list->member(name);
        json += ",\"buffers\":[{" + number("byteLength", binary_.size()) + "}]}";
        json.resize((json.size() + 3) / 4 * 4, ' ');
        constexpr std::size_t heads = 12 + 8 + 8;
        put({glb, 2, static_cast<std::uint32_t>(heads + json.size() + binary_.size())});
        put({static_cast<std::uint32_t>(json.size()), jsonChunk});
        target_.file.append(json);
        put({static_cast<std::uint32_t>(binary_.size()), binaryChunk});
        target_.file.append(binary_);
    }

private:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    void put(std::initializer_list<std::uint32_t> numbers) {
        for (const std::uint32_t value : numbers)
            target_.file.append({reinterpret_cast<const char*>(&value), sizeof(value)});
    }

    /// A stretch of the block, which begins at a place that four divides.
    std::size_t addView(const void* bytes, std::size_t size, const std::string& target) {
        const std::string view = "{\"buffer\":0," + number("byteOffset", binary_.size()) + "," +
                                 number("byteLength", size) + target + "}";
        binary_.append(static_cast<const char*>(bytes), size);
        binary_.resize((binary_.size() + 3) / 4 * 4, '\0');
        return views_.add(view);
    }

    template <class Entry>
    std::size_t addNumbers(const std::vector<Entry>& entries, int component, const char* type,
                           int target, const std::string& bounds = {}) {
        const std::size_t view = addView(entries.data(), entries.size() * sizeof(Entry),
                                         "," + number("target", static_cast<std::size_t>(target)));
        return accessors_.add("{" + number("bufferView", view) + "," +
                              number("componentType", static_cast<std::size_t>(component)) + "," +
                              number("count", entries.size()) + ",\"type\":\"" + type + "\"" +
                              bounds + "}");
    }

    std::size_t addPoints(const std::vector<Vector>& points) {
        Vector least = points.front();
        Vector most = points.front();
        for (const Vector& point : points) {
            for (std::size_t n = 0; n < point.size(); ++n) {
                least[n] = std::min(least[n], point[n]);
                most[n] = std::max(most[n], point[n]);
            }
        }
        return addNumbers(points, floats, "VEC3", pointsTarget,
                          ",\"min\":" + listOf(least) + ",\"max\":" + listOf(most));
    }

    std::string primitive(const std::string& attributes, const std::vector<std::uint32_t>& indices,
                          std::size_t material) {
        return "{\"attributes\":{" + attributes + "}," +
               number("indices", addNumbers(indices, wholes, "SCALAR", indicesTarget)) + "," +
               number("material", material) + "}";
    }

    /// Triangles on the part's own points.
    std::string plain(const SolidPart& part, const PartSkin& skin, std::size_t points) {
        std::vector<std::uint32_t> indices;
        for (std::size_t i = skin.first; i < skin.end; ++i) {
            indices.insert(indices.end(), part.solid.triangles[i].begin(),
                           part.solid.triangles[i].end());
        }
        return primitive(number("POSITION", points), indices, materialOf(skin));
    }

    /// Triangles on points that have a place in the picture too: one for each point of the loft.
    std::string pictured(const SolidPart& part, const PartSkin& skin,
                         const std::vector<Point2D>& places) {
        std::vector<std::uint32_t> numbers(places.size(),
                                           std::numeric_limits<std::uint32_t>::max());
        std::vector<Vector> points;
        std::vector<std::array<float, 2>> textured;
        std::vector<std::uint32_t> indices;
        for (std::size_t i = skin.first; i < skin.end; ++i) {
            for (std::size_t n = 0; n < part.solid.triangles[i].size(); ++n) {
                const std::uint32_t source = part.solid.sources[i][n] - skin.firstSource;
                if (numbers[source] == std::numeric_limits<std::uint32_t>::max()) {
                    numbers[source] = static_cast<std::uint32_t>(points.size());
                    points.push_back(vectorOf(part.solid.points[part.solid.triangles[i][n]]));
                    // Here v goes down.
                    textured.push_back({static_cast<float>(places[source].x),
                                        static_cast<float>(1 - places[source].y)});
                }
                indices.push_back(numbers[source]);
            }
        }
        const std::string attributes =
            number("POSITION", addPoints(points)) + "," +
            number("TEXCOORD_0", addNumbers(textured, floats, "VEC2", pointsTarget));
        return primitive(attributes, indices, materialOf(skin));
    }

    std::size_t textureOf(const PartSkin& skin) {
        const std::string& jpeg = target_.pictures.of(skin).jpeg;
        const std::size_t view = addView(jpeg.data(), jpeg.size(), {});
        const std::size_t image =
            images_.add("{" + number("bufferView", view) + ",\"mimeType\":\"image/jpeg\"}");
        const auto wrap = static_cast<std::size_t>(skin.repeat ? repeat : clampToEdge);
        const std::size_t sampler =
            samplers_.add("{" + number("wrapS", wrap) + "," + number("wrapT", wrap) + "}");
        return textures_.add("{" + number("sampler", sampler) + "," + number("source", image) +
                             "}");
    }

    /// Skins that look alike share a material.
    std::size_t materialOf(const PartSkin& skin) {
        const bool pictured = target_.pictures.of(skin).width > 0;
        const std::string color = "[" + numberText(light(skin.color.x)) + "," +
                                  numberText(light(skin.color.y)) + "," +
                                  numberText(light(skin.color.z)) + ",1]";
        const std::string key =
            pictured ? (skin.turned ? "turned " : "plain ") + skin.picture : color;
        const auto [place, fresh] = materialsByLook_.try_emplace(key);
        if (!fresh) return place->second;
        const std::string look =
            pictured ? "\"baseColorTexture\":{" + number("index", textureOf(skin)) + "}"
                     : "\"baseColorFactor\":" + color;
        place->second = materials_.add("{\"pbrMetallicRoughness\":{" + look +
                                       ",\"metallicFactor\":0,\"roughnessFactor\":0.8}}");
        return place->second;
    }

    SolidTarget target_;
    std::string binary_;
    JsonList children_;
    JsonList nodes_;
    JsonList meshes_;
    JsonList materials_;
    JsonList textures_;
    JsonList samplers_;
    JsonList images_;
    JsonList accessors_;
    JsonList views_;
    std::map<std::string, std::size_t> materialsByLook_;
    std::size_t parts_ = 0;
};

}  // namespace

std::unique_ptr<SolidWriter> glbWriter(const SolidTarget& target) {
    return std::make_unique<GlbWriter>(target);
}

}  // namespace velna
