#include "output/CutText.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace velna {

namespace {

/// What stands for bytes that are no letter.
constexpr std::uint32_t replacement = 0xfffd;

/// How many bytes a letter has that begins with this one, and the bits of it that count; 0 for
/// one that begins none.
struct Lead {
    int bytes = 0;
    std::uint32_t bits = 0;
    std::uint32_t least = 0;  ///< letters below it are written shorter
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if ((byte & 0xe0U) == 0xc0) return {2, byte & 0x1fU, 0x80};
    if ((byte & 0xf0U) == 0xe0) return {3, byte & 0x0fU, 0x800};
    if ((byte & 0xf8U) == 0xf0) return {4, byte & 0x07U, 0x10000};
    return {};
}

/// Takes the next letter off a text in UTF-8; a byte that belongs to none is `replacement`.
std::uint32_t takeLetter(std::string_view& text) {
    const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
    std::uint32_t letter = lead.bits;
    bool whole = lead.bytes > 0 && static_cast<std::size_t>(lead.bytes) <= text.size();
    for (int n = 1; whole && n < lead.bytes; ++n) {
        const auto byte = static_cast<unsigned char>(text[static_cast<std::size_t>(n)]);
        whole = (byte & 0xc0U) == 0x80;
        letter = letter << 6U | (byte & 0x3fU);
    }
    const bool surrogate = letter >= 0xd800 && letter <= 0xdfff;
    if (!whole || surrogate || letter < lead.least || letter > 0x10ffff) {
        text.remove_prefix(1);
        return replacement;
    }
    text.remove_prefix(static_cast<std::size_t>(lead.bytes));
    return letter;
}

void appendEscape(std::string& out, std::uint32_t unit) {
    std::array<char, 16> escape{};
    std::snprintf(escape.data(), escape.size(), "\\U+%04X", static_cast<unsigned>(unit));
    out += escape.data();
}

std::string_view markOf(char letter) {
    switch (letter) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        default:
            return {};
    }
}

constexpr std::string_view replacementText = "\xef\xbf\xbd";

}  // namespace

std::string dxfText(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::uint32_t letter = takeLetter(text);
        if (letter < 0x20 || letter == 0x7f) {
            out += ' ';
        } else if (letter == '%' && text.starts_with('%')) {
            // Two of them begin a sign of their own; a code for one does not.
            out += "%%37";
        } else if (letter == '\\') {
            appendEscape(out, letter);
        } else if (letter < 0x80) {
            out += static_cast<char>(letter);
        } else if (letter < 0x10000) {
            appendEscape(out, letter);
        } else {
            appendEscape(out, 0xd800 + ((letter - 0x10000) >> 10U));
            appendEscape(out, 0xdc00 + ((letter - 0x10000) & 0x3ffU));
        }
    }
    return out;
}

std::string xmlText(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::string_view before = text;
        const std::uint32_t letter = takeLetter(text);
        const std::string_view bytes = before.substr(0, before.size() - text.size());
        if (letter < 0x20 || letter == 0x7f) {
            out += ' ';
        } else if (letter == replacement || letter == 0xfffe || letter == 0xffff) {
            out += replacementText;
        } else if (const std::string_view mark = markOf(bytes.front()); !mark.empty()) {
            out += mark;
        } else {
            out += bytes;
        }
    }
    return out;
}

}  // namespace velna
