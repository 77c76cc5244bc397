#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "common/NumberText.h"
#include "common/Point.h"
#include "common/TextSink.h"
#include "common/ValueReader.h"

namespace velna {

/// How the first line of a project begins.
inline constexpr std::string_view projectHead = "# VELNA File Format V";

/// One of the three parts of an object's `color`, a line of its own.
struct ColorPart {
    double Point3D::*part;
};

/// A number that older files hold and that has no field any more.
struct DroppedNumber {};

/// A line of a record: which field it holds, and with its type how it is written. A 16-bit field is
/// a count and never negative.
template <class Object>
using RecordField = std::variant<double Object::*, std::int16_t Object::*, std::int32_t Object::*,
                                 bool Object::*, ColorPart, DroppedNumber>;

/// The fields of a record in the order of their lines.
template <class Object>
using RecordFields = std::span<const RecordField<Object>>;

/// The three lines of a colour.
template <class Object>
inline constexpr std::array<RecordField<Object>, 3> colorFields{
    ColorPart{&Point3D::x}, ColorPart{&Point3D::y}, ColorPart{&Point3D::z}};

/// The fields of `first`, then those of `second`.
template <class Field, std::size_t N, std::size_t M>
constexpr std::array<Field, N + M> joined(const std::array<Field, N>& first,
                                          const std::array<Field, M>& second) {
    std::array<Field, N + M> all{};
    for (std::size_t i = 0; i < N; ++i) all[i] = first[i];
    for (std::size_t i = 0; i < M; ++i) all[N + i] = second[i];
    return all;
}

/// The most characters of a line with a number, its end included.
inline constexpr std::size_t longestNumberLine = longestNumber + 2;

/// Writes a line with a number at `at`; gives its end.
inline char* putNumberLine(char* at, double value) {
    at = putNumber(at, value);
    *at++ = '\r';
    *at++ = '\n';
    return at;
}

/// A line with a number, a whole number, or a text in quotes.
inline void saveNumber(TextSink& file, double value) {
    char text[longestNumberLine];
    file.buffer().append(text, putNumberLine(text, value));
}

inline void saveInteger(TextSink& file, long long value) {
    appendInteger(file.buffer(), value);
    file.line({});
}

inline void saveFlag(TextSink& file, bool value) {
    file.line(value ? "#TRUE#" : "#FALSE#");
}

inline void saveText(TextSink& file, std::string_view text) {
    file.buffer() += '"';
    file.buffer() += text;
    file.line("\"");
}

/// Writes one field of `object` on a line.
template <class Object>
class FieldWriter {
public:
    FieldWriter(TextSink& file, const Object& object) : file_(file), object_(object) {}

    void operator()(double Object::*field) const { saveNumber(file_, object_.*field); }
    void operator()(std::int16_t Object::*field) const { saveInteger(file_, object_.*field); }
    void operator()(std::int32_t Object::*field) const { saveInteger(file_, object_.*field); }
    void operator()(bool Object::*field) const { saveFlag(file_, object_.*field); }
    void operator()(ColorPart color) const {
        if constexpr (requires { object_.color(); }) saveNumber(file_, object_.color().*color.part);
    }
    void operator()(DroppedNumber) const { saveNumber(file_, 0); }

private:
    TextSink& file_;
    const Object& object_;
};

/// Reads one field of `object` from a line.
template <class Object>
class FieldReader {
public:
    FieldReader(ValueReader& file, Object& object) : file_(file), object_(object) {}

    void operator()(double Object::*field) const { object_.*field = file_.number(); }
    void operator()(std::int16_t Object::*field) const { object_.*field = file_.count(0); }
    void operator()(std::int32_t Object::*field) const { object_.*field = file_.int32(); }
    void operator()(bool Object::*field) const { object_.*field = file_.boolean(); }
    void operator()(ColorPart color) const {
        if constexpr (requires { object_.color(); }) {
            Point3D changed = object_.color();
            changed.*color.part = file_.number();
            object_.set_color(changed);
        }
    }
    void operator()(DroppedNumber) const { file_.number(); }

private:
    ValueReader& file_;
    Object& object_;
};

/// Writes `fields` of `object`, a line each.
template <class Object>
void saveFields(TextSink& file, const Object& object, RecordFields<Object> fields) {
    for (const auto& field : fields) std::visit(FieldWriter<Object>(file, object), field);
}

/// Reads `fields` straight into `object`; those behind a failure keep their values.
template <class Object>
void readFields(ValueReader& file, Object& object, RecordFields<Object> fields) {
    for (const auto& field : fields) std::visit(FieldReader<Object>(file, object), field);
}

/// A whole record: the head's text is never looked at, a file is trusted to have the right records
/// in the right places.
template <class Object>
void readRecord(ValueReader& file, Object& object, RecordFields<Object> fields) {
    file.line();
    readFields(file, object, fields);
}

/// The same on the way out, under the head word `head`.
template <class Object>
void saveRecord(TextSink& file, std::string_view head, const Object& object,
                RecordFields<Object> fields) {
    file.line(head);
    saveFields(file, object, fields);
    file.flushIfFull();
}

}  // namespace velna
