#include "support/FakeImaging.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>

#include "support/GlTape.h"

namespace velna::test {
namespace {

constexpr std::size_t headerSize = 54;

int little32(const std::vector<unsigned char>& bytes, std::size_t at) {
    return bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 | bytes[at + 3] << 24;
}

std::size_t offset(const PictureBytes& picture, int x, int y) {
    return 3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                static_cast<std::size_t>(x));
}

void copyPixel(const PictureBytes& from, int x, int y, PictureBytes& to, int toX, int toY) {
    for (std::size_t k = 0; k < 3; ++k)
        to.bytes[offset(to, toX, toY) + k] = from.bytes[offset(from, x, y) + k];
}

/// A bitmap of 24 bits: rows from the bottom, blue first, padded to four bytes.
bool readBitmap(const std::string& file, PictureBytes& picture) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(stream), {}};
    if (bytes.size() < headerSize || bytes[0] != 'B' || bytes[1] != 'M' || bytes[28] != 24)
        return false;
    picture = plainPicture(little32(bytes, 18), little32(bytes, 22));
    const auto start = static_cast<std::size_t>(little32(bytes, 10));
    const std::size_t stride = (static_cast<std::size_t>(picture.width) * 3 + 3) / 4 * 4;
    if (bytes.size() < start + stride * static_cast<std::size_t>(picture.height)) return false;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            const std::size_t at = start +
                                   stride * static_cast<std::size_t>(picture.height - 1 - y) +
                                   3 * static_cast<std::size_t>(x);
            for (std::size_t k = 0; k < 3; ++k)
                picture.bytes[offset(picture, x, y) + k] = bytes[at + 2 - k];
        }
    return true;
}

}  // namespace

PictureBytes plainPicture(int width, int height) {
    const auto size = 3 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, std::vector<unsigned char>(size, 100)};
}

bool FakeImaging::load(const std::string& file, std::string& reason) {
    loads.push_back(file);
    const auto known = pictures.find(file);
    if (known != pictures.end()) {
        current_ = known->second;
        return true;
    }
    if (std::filesystem::is_regular_file(file) && readBitmap(file, current_)) return true;
    reason = "cannot be read";
    return false;
}

void FakeImaging::rotateQuarter() {
    PictureBytes turned = plainPicture(current_.height, current_.width);
    for (int y = 0; y < current_.height; ++y)
        for (int x = 0; x < current_.width; ++x)
            copyPixel(current_, x, y, turned, current_.height - 1 - y, x);
    current_ = turned;
}

void FakeImaging::resize(int width, int height) {
    PictureBytes sized = plainPicture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            copyPixel(current_, static_cast<int>(1LL * x * current_.width / width),
                      static_cast<int>(1LL * y * current_.height / height), sized, x, y);
    current_ = sized;
}

PictureBytes FakeImaging::pixels() {
    if (pixelsFail) throw std::bad_alloc();
    PictureBytes picture = current_;
    if (cutPixels) picture.bytes.pop_back();
    return picture;
}

bool FakeImaging::encode(PictureFormat format, std::string& bytes, std::string& reason) {
    if (!encodeFailure.empty()) {
        reason = encodeFailure;
        return false;
    }
    saved.push_back({format, current_});
    bytes = (format == PictureFormat::Bmp ? "bmp " : "jpeg ") + std::to_string(current_.width) +
            " x " + std::to_string(current_.height) + " " +
            std::string(current_.bytes.begin(), current_.bytes.end());
    return true;
}

void FakeImaging::showProgress(int percent) {
    GlTape::add({"progress", percent});
}

void FakeImaging::hideProgress() {
    GlTape::add({"hideProgress"});
}

void FakeImaging::showError(const std::string& text) {
    GlTape::add({"message", text});
    errors.push_back(text);
    whileBoxOpen();
}

}  // namespace velna::test
