#include "output/SolidFiles.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/TemporaryFolder.h"
#include "support/Unzip.h"

namespace velna::test {
namespace {

template <class T>
T at(const std::string& bytes, std::size_t place) {
    T value{};
    if (place + sizeof(T) > bytes.size()) {
        ADD_FAILURE() << "the file ends before byte " << place + sizeof(T);
        return value;
    }
    std::memcpy(&value, bytes.data() + place, sizeof(T));
    return value;
}

/// The value of an attribute.
std::string attribute(const std::string& element, const std::string& name) {
    const auto from = element.find(" " + name + "=\"");
    if (from == std::string::npos) return {};
    const auto begin = from + name.size() + 3;
    return element.substr(begin, element.find('"', begin) - begin);
}

/// The elements of a 3MF model as a strict reader takes them: what is opened is closed, and what
/// is referred to stands before.
class ThreeMfElements {
public:
    /// "<vertex x="1" y="2" z="3"/", less the bracket at its end.
    void take(const std::string& element) {
        nest(element);
        const auto is = [&](const char* name) { return element.starts_with(name); };
        if (is("<model ")) unit_ = attribute(element, "unit");
        if (is("<basematerials ")) colours_[lastColours_ = attribute(element, "id")] = 0;
        if (is("<base ")) ++colours_[lastColours_];
        if (is("<object ")) {
            bodies_.emplace_back().name = attribute(element, "name");
            bodies_.back().unit = unit_;
            objects_.insert(attribute(element, "id"));
            expectColour(element, "pindex");
        }
        if (is("<item ")) {
            EXPECT_EQ(objects_.erase(attribute(element, "objectid")), 1u) << element;
        }
        if (is("<vertex ")) {
            bodies_.back().points.push_back({std::stod(attribute(element, "x")),
                                             std::stod(attribute(element, "y")),
                                             std::stod(attribute(element, "z"))});
        }
        if (!is("<triangle ")) return;
        bodies_.back().faces.push_back({std::stoul(attribute(element, "v1")),
                                        std::stoul(attribute(element, "v2")),
                                        std::stoul(attribute(element, "v3"))});
        if (element.find(" pid=") != std::string::npos) expectColour(element, "p1");
    }

    std::vector<FileBody> whole() const {
        EXPECT_TRUE(open_.empty()) << open_.back() << " is not closed";
        EXPECT_TRUE(objects_.empty()) << "an object is not to be built";
        return bodies_;
    }

private:
    void nest(const std::string& element) {
        const std::string name = element.substr(1, element.find_first_of(" \n", 1) - 1);
        if (name.starts_with('?') || element.ends_with('/')) return;
        if (!name.starts_with('/')) return open_.push_back(name);
        const std::string last = open_.empty() ? std::string() : open_.back();
        EXPECT_EQ(name, "/" + last);
        if (name == "/" + last) open_.pop_back();
    }

    void expectColour(const std::string& element, const char* number) {
        const auto colours = colours_.find(attribute(element, "pid"));
        ASSERT_NE(colours, colours_.end()) << element;
        EXPECT_LT(std::stoul(attribute(element, number)), colours->second) << element;
    }

    std::vector<std::string> open_;
    std::string unit_;
    std::string lastColours_;
    std::map<std::string, std::size_t> colours_;  ///< how many a group of colours has
    std::set<std::string> objects_;
    std::vector<FileBody> bodies_;
};

}  // namespace

std::vector<FileBody> readStl(const std::string& bytes) {
    constexpr std::size_t head = 84;
    constexpr std::size_t record = 50;
    EXPECT_FALSE(bytes.starts_with("solid"));
    const auto count = at<std::uint32_t>(bytes, 80);
    EXPECT_EQ(bytes.size(), head + record * count);
    FileBody body;
    for (std::size_t n = 0; n < count; ++n) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            const std::size_t place = head + record * n + 12 + 12 * corner;
            body.points.push_back({at<float>(bytes, place), at<float>(bytes, place + 4),
                                   at<float>(bytes, place + 8)});
        }
        body.faces.push_back({3 * n, 3 * n + 1, 3 * n + 2});
    }
    return {body};
}

std::vector<FileBody> readObj(const std::string& bytes) {
    std::vector<FileBody> bodies;
    std::vector<std::array<double, 3>> points;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "o") words >> bodies.emplace_back().name;
        if (word == "v") words >> points.emplace_back()[0] >> points.back()[1] >> points.back()[2];
        if (word != "f") continue;
        auto& face = bodies.back().faces.emplace_back();
        for (std::size_t& corner : face) {
            words >> word;
            corner = std::stoul(word) - 1;
            EXPECT_LT(corner, points.size());
        }
    }
    for (FileBody& body : bodies) body.points = points;
    return bodies;
}

std::vector<FileBody> readThreeMf(const std::string& bytes) {
    const std::string model = unzipped(bytes).at("3D/3dmodel.model");
    ThreeMfElements elements;
    for (std::size_t from = model.find('<'); from != std::string::npos;
         from = model.find('<', from + 1))
        elements.take(model.substr(from, model.find('>', from) - from));
    return elements.whole();
}

std::string jsonOfGlb(const std::string& bytes) {
    EXPECT_EQ(at<std::uint32_t>(bytes, 0), 0x46546C67u);
    EXPECT_EQ(at<std::uint32_t>(bytes, 4), 2u) << "the version of the format";
    EXPECT_EQ(at<std::uint32_t>(bytes, 8), bytes.size());
    const auto length = at<std::uint32_t>(bytes, 12);
    EXPECT_EQ(bytes.substr(16, 4), "JSON");
    EXPECT_EQ(length % 4, 0u);
    const std::size_t block = 20 + std::size_t{length};
    EXPECT_EQ(bytes.substr(block + 4, 4), std::string("BIN\0", 4));
    EXPECT_EQ(at<std::uint32_t>(bytes, block), bytes.size() - block - 8);
    return bytes.substr(20, length);
}

std::vector<FileBody> readGlb(const std::string& bytes) {
    const auto json = nlohmann::json::parse(jsonOfGlb(bytes));
    const std::size_t binary = 20 + at<std::uint32_t>(bytes, 12) + 8;
    const auto bytesOfAccessor = [&](std::size_t number) {
        const auto& accessor = json.at("accessors").at(number);
        const auto& view = json.at("bufferViews").at(accessor.at("bufferView").get<std::size_t>());
        return std::pair{binary + view.at("byteOffset").get<std::size_t>(),
                         accessor.at("count").get<std::size_t>()};
    };
    std::vector<FileBody> bodies;
    for (const auto& child : json.at("nodes").at(0).at("children")) {
        const auto& node = json.at("nodes").at(child.get<std::size_t>());
        FileBody& body = bodies.emplace_back();
        body.name = node.at("name");
        for (const auto& primitive :
             json.at("meshes").at(node.at("mesh").get<std::size_t>()).at("primitives")) {
            const std::size_t first = body.points.size();
            const auto [points, count] = bytesOfAccessor(primitive.at("attributes").at("POSITION"));
            for (std::size_t n = 0; n < count; ++n) {
                body.points.push_back({at<float>(bytes, points + 12 * n),
                                       at<float>(bytes, points + 12 * n + 4),
                                       at<float>(bytes, points + 12 * n + 8)});
            }
            const auto [indices, corners] = bytesOfAccessor(primitive.at("indices"));
            for (std::size_t n = 0; n + 2 < corners; n += 3) {
                auto& face = body.faces.emplace_back();
                for (std::size_t c = 0; c < 3; ++c)
                    face[c] = first + at<std::uint32_t>(bytes, indices + 4 * (n + c));
            }
        }
    }
    return bodies;
}

std::vector<FileBody> readSolids(const std::string& file) {
    const std::string bytes = bytesOf(file);
    if (file.ends_with(".stl")) return readStl(bytes);
    if (file.ends_with(".obj")) return readObj(bytes);
    return file.ends_with(".3mf") ? readThreeMf(bytes) : readGlb(bytes);
}

std::string flawOf(const FileBody& body) {
    using Point = std::array<double, 3>;
    std::map<std::pair<Point, Point>, int> edges;
    for (const auto& face : body.faces) {
        for (std::size_t n = 0; n < face.size(); ++n) {
            if (face[n] >= body.points.size()) return "no such point";
            const Point& from = body.points[face[n]];
            const Point& to = body.points[face[(n + 1) % face.size()]];
            for (const double value : from)
                if (!(std::abs(value) <= 1e6)) return "a coordinate of " + std::to_string(value);
            if (from == to) return "two equal corners";
            ++edges[{from, to}];
        }
    }
    for (const auto& [edge, uses] : edges) {
        const auto back = edges.find({edge.second, edge.first});
        if (back == edges.end() || back->second != uses) return "an open edge";
        if (uses != 1 && !body.name.empty()) return "an edge used twice";
    }
    return volumeOf(body) > 0 ? "" : "no volume";
}

double volumeOf(const FileBody& body) {
    double sum = 0;
    for (const auto& face : body.faces) {
        // From a point of the body: far from the origin the digits would be lost.
        const auto from = [&](std::size_t corner) {
            const auto& p = body.points[face[corner]];
            const auto& o = body.points[body.faces.front().front()];
            return std::array{p[0] - o[0], p[1] - o[1], p[2] - o[2]};
        };
        const auto a = from(0);
        const auto b = from(1);
        const auto c = from(2);
        sum += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
               a[2] * (b[0] * c[1] - b[1] * c[0]);
    }
    return sum / 6;
}

}  // namespace velna::test
