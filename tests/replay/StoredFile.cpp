#include "StoredFile.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "common/ReplacedFile.h"

namespace velna::test {
namespace {

/// Deeper than any file of ours; writing what is nested without end would take the stack.
constexpr int deepest = 50;

/// Lists one entry a line, each indented by `indent`.
std::string list(const Document& entries, const std::string& indent) {
    std::string text = "[";
    for (const Document& entry : entries)
        text += (text.size() > 1 ? ",\n" : "\n") + indent + entry.dump();
    return text + "]";
}

std::string named(const std::string& name) {
    return Document(name).dump() + ":";
}

/// An object, each member written by `member(name, value)`, `between` two of them.
template <class Member>
std::string object(const Document& members, const std::string& between, Member member) {
    std::string text;
    for (const auto& [name, value] : members.items())
        text += (text.empty() ? "" : between) + member(name, value);
    return "{" + text + "}";
}

std::string plainMember(const std::string& name, const Document& value) {
    return named(name) + value.dump();
}

std::string expectedText(const Document& expected) {
    return object(expected, ",\n ", [](const std::string& name, const Document& value) {
        return name == "steps" ? named(name) + list(value, "  ") : plainMember(name, value);
    });
}

std::string caseText(const Document& scenario) {
    return object(scenario, ",", [](const std::string& name, const Document& value) {
        if (name == "steps") return "\n " + named(name) + list(value, "  ");
        if (name == "expected") return "\n " + named(name) + expectedText(value);
        return plainMember(name, value);
    });
}

std::string casesText(const Document& cases) {
    std::string text;
    for (const Document& scenario : cases) text += (text.empty() ? "" : ",\n") + caseText(scenario);
    return "[\n" + text + "\n]";
}

std::string scenariosText(const Document& document) {
    return object(document, ",\n",
                  [](const std::string& name, const Document& value) {
                      if (name == "cases") return named(name) + casesText(value);
                      if (name == "base") return named(name) + object(value, ",\n", plainMember);
                      return plainMember(name, value);
                  }) +
           "\n";
}

/// `text` behind a line's first place, each further line moved by one.
std::string moved(const std::string& text) {
    std::string result;
    for (char c : text) {
        result += c;
        if (c == '\n') result += ' ';
    }
    return result;
}

std::string sceneText(const Document& scene) {
    return object(scene, ",",
                  [](const std::string& name, const Document& value) {
                      const std::string start = "\n " + Document(name).dump() + ": ";
                      if (name == "calls") return start + list(value, "  ") + "\n";
                      return start + moved(value.dump(1));
                  }) +
           "\n";
}

}  // namespace

Document readDocument(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in || !std::filesystem::is_regular_file(file)) throw std::runtime_error("cannot be read");
    const auto notTooDeep = [](int depth, Document::parse_event_t /*event*/, Document& /*parsed*/) {
        if (depth > deepest) throw std::runtime_error("is nested too deeply");
        return true;
    };
    return Document::parse(in, notTooDeep);
}

std::string layOut(const Document& document) {
    return document.contains("cases") ? scenariosText(document) : sceneText(document);
}

void writeDocument(const std::string& file, const Document& document) {
    ReplacedFile out(file);
    out.buffer() += layOut(document);
    if (!out.commit()) throw std::runtime_error("cannot be written: " + out.error());
}

}  // namespace velna::test
