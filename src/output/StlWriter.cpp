// Binary STL: a head of 80 bytes, the number of triangles, and of each its normal and corners as
// 32-bit numbers, lowest byte first, and two bytes that nothing uses.

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "common/Version.h"
#include "output/SolidWriters.h"

namespace velna {
namespace {

static_assert(std::endian::native == std::endian::little, "STL has the lowest byte first");

constexpr std::size_t headSize = 80;
constexpr std::size_t triangleSize = 50;
constexpr std::size_t atOnce = 1310;  // triangles: about 64 KiB

struct Vector {
    float x;
    float y;
    float z;
};

Vector vectorOf(const Point3D& p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
}

/// The unit normal by the right hand; of a triangle too small for one zeros, which readers replace.
Vector normalOf(const Point3D& a, const Point3D& b, const Point3D& c) {
    const Point3D u{b.x - a.x, b.y - a.y, b.z - a.z};
    const Point3D v{c.x - a.x, c.y - a.y, c.z - a.z};
    const Point3D n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
    const double length = std::sqrt(n.x * n.x + n.y * n.y + n.z * n.z);
    if (length == 0) return {0, 0, 0};
    return vectorOf({n.x / length + 0.0, n.y / length + 0.0, n.z / length + 0.0});
}

class StlWriter : public SolidWriter {
public:
    explicit StlWriter(const SolidTarget& target) : target_(target) {
        // A head that begins with "solid" would be taken for the text form.
        std::string head = std::string("Velna ").append(versionText).append(", millimetres");
        head.resize(headSize, '\0');
        target_.file.append(head);
        target_.file.append(std::string(sizeof(std::uint32_t), '\0'));
    }

    void add(const SolidPart& part) override {
        const auto& triangles = part.solid.triangles;
        const Point3D* points = part.solid.points.data();
        for (std::size_t from = 0; from < triangles.size() && !target_.work.cancelled();
             from += atOnce) {
            const std::size_t to = std::min(triangles.size(), from + atOnce);
            char* at = block_.data();
            for (std::size_t i = from; i < to; ++i) {
                const Point3D& a = points[triangles[i][0]];
                const Point3D& b = points[triangles[i][1]];
                const Point3D& c = points[triangles[i][2]];
                const Vector record[] = {normalOf(a, b, c), vectorOf(a), vectorOf(b), vectorOf(c)};
                std::memcpy(at, record, sizeof(record));
                std::memset(at + sizeof(record), 0, triangleSize - sizeof(record));
                at += triangleSize;
            }
            target_.file.append({block_.data(), static_cast<std::size_t>(at - block_.data())});
            target_.work.did(static_cast<long long>(to - from));
        }
        count_ += triangles.size();
    }

    void end() override {
        if (count_ > std::numeric_limits<std::uint32_t>::max())
            return target_.file.fail("More triangles than an STL file can count.");
        const auto count = static_cast<std::uint32_t>(count_);
        std::array<char, sizeof(count)> bytes{};
        std::memcpy(bytes.data(), &count, sizeof(count));
        target_.file.overwrite(headSize, {bytes.data(), bytes.size()});
    }

private:
    SolidTarget target_;
    std::uint64_t count_ = 0;
    std::array<char, atOnce * triangleSize> block_;
};

}  // namespace

std::unique_ptr<SolidWriter> stlWriter(const SolidTarget& target) {
    return std::make_unique<StlWriter>(target);
}

}  // namespace velna
