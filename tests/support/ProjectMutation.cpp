#include "support/ProjectMutation.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <utility>
#include <variant>
#include <vector>

#include "common/TextSink.h"
#include "common/ValueReader.h"
#include "model/Plane.h"
#include "model/SectionArrays.h"
#include "persistence/EquipmentRecords.h"
#include "persistence/FuselageRecords.h"
#include "persistence/PictureFiles.h"
#include "persistence/ProjectFile.h"
#include "persistence/RecordFields.h"
#include "persistence/TailRecords.h"
#include "persistence/WingRecords.h"
#include "support/SmallModel.h"

namespace velna::fuzz {
namespace {

class Text : public TextSink {
public:
    std::string all() {
        flush();
        return std::move(all_);
    }

private:
    void flush() override {
        all_ += buffer();
        buffer().clear();
    }

    std::string all_;
};

Project readOf(std::string_view bytes) {
    Project project;
    Plane::setDefaultPlane(project);
    try {
        Plane::readProjectBytes(project, bytes);
    } catch (const ReadFailure&) {
        // What was read so far is a project as well.
    }
    return project;
}

std::string savedText(const Project& project) {
    Text file;
    Plane::saveBlocks(file, project);
    const std::size_t pictures = PictureFiles::picturesOf(project).size();
    for (std::size_t i = 0; i < pictures; ++i) saveText(file, {});
    return file.all();
}

using Section = std::array<double, std::size(sectionArrays)>;

/// The sections in their order, nose to tail.
std::vector<Section> sectionsOf(const MeshSections& body) {
    std::vector<Section> sections;
    for (int i = 1; i <= body.sectionCount(); ++i) {
        Section& section = sections.emplace_back();
        for (std::size_t n = 0; n < section.size(); ++n)
            section[n] = (body.*sectionArrays[n])(body.storageIndex(i));
    }
    return sections;
}

void putSections(MeshSections& body, const std::vector<Section>& sections) {
    body.nb_sections = static_cast<std::int16_t>(sections.size());
    body.initArrays();
    for (int i = 1; i <= body.nb_sections; ++i) {
        const Section& section = sections[static_cast<std::size_t>(i) - 1];
        for (std::size_t n = 0; n < section.size(); ++n) (body.*sectionArrays[n])(i) = section[n];
        body.sectionOrder(i) = static_cast<std::int16_t>(i);
    }
}

/// One project under change.
class Mutation {
public:
    Mutation(Project& project, std::mt19937& random) : project_(project), random_(random) {}

    void change() {
        static constexpr void (Mutation::*ways[])() = {
            &Mutation::changeField,   &Mutation::changeField,   &Mutation::changeField,
            &Mutation::changeSection, &Mutation::changeSection, &Mutation::changeSections,
            &Mutation::changePoint,   &Mutation::changePoints,  &Mutation::changeWings,
            &Mutation::changeBodies,  &Mutation::changeBoxes,   &Mutation::changeOutside};
        (this->*ways[below(std::size(ways))])();
    }

    /// Takes a part of `other`.
    void cross(const Project& other) {
        switch (below(5)) {
            case 0:
                wing() = other.Wings(anyOf(other.nbWings));
                break;
            case 1:
                project_.Stabilizer = other.Stabilizer;
                break;
            case 2:
                project_.Rudder = other.Rudder;
                break;
            case 3:
                body() = other.Fuselages(anyOf(other.nbFuselages));
                break;
            default:
                box() = other.Equipments(anyOf(other.nbEquipments));
        }
    }

private:
    std::size_t below(std::size_t count) { return random_() % count; }
    int anyOf(int count) { return 1 + static_cast<int>(below(static_cast<std::size_t>(count))); }
    SymWingSections& wing() { return project_.Wings(anyOf(project_.nbWings)); }
    MeshSections& body() { return project_.Fuselages(anyOf(project_.nbFuselages)); }
    ElectroBox& box() { return project_.Equipments(anyOf(project_.nbEquipments)); }

    double wild() {
        static constexpr double numbers[] = {0,       1,
                                             -1,      2,
                                             3,       7,
                                             90,      -90,
                                             100,     0.5,
                                             -0.5,    1e-5,
                                             1e-15,   1e-300,
                                             5e-324,  0.0001,
                                             255,     256,
                                             32767,   1e6,
                                             1e8,     -1e8,
                                             999999,  1e15,
                                             1e150,   -1e150,
                                             1e154,   1e300,
                                             1e308,   -1e308,
                                             1e-30,   -1e-9,
                                             25.4,    1e16,
                                             1e-160,  9e15,
                                             1.7e308, 1.79769313486231e308};
        return numbers[below(std::size(numbers))];
    }

    /// What becomes of a number.
    double changed(double value) {
        const double candidates[] = {wild(),
                                     wild(),
                                     seen_,
                                     -value,
                                     value * 2,
                                     value / 2,
                                     value + 1,
                                     value * (1 + 1e-15),
                                     std::round(value),
                                     seen_};
        const double next = candidates[below(std::size(candidates))];
        seen_ = value;
        return std::isfinite(next) ? next : value;
    }

    template <class Object>
    void changeFieldOf(Object& object, RecordFields<Object> fields) {
        const auto visitor = [&](auto field) { changeLine(object, field); };
        std::visit(visitor, fields[below(fields.size())]);
    }

    template <class Object>
    void changeLine(Object& object, double Object::*field) {
        object.*field = changed(object.*field);
    }
    /// A count that other lines follow is changed together with them.
    template <class Object>
    void changeLine(Object& object, std::int16_t Object::*field) {
        static constexpr std::int16_t counts[] = {0, 1, 2, 3, 4, 5, 7, 8, 16, 31};
        const std::int16_t count = counts[below(std::size(counts))];
        if constexpr (requires { object.nb_sections; }) {
            if (field == &Object::nb_sections) return changeSectionsOf(object);
        }
        object.*field = count;
    }
    template <class Object>
    void changeLine(Object& object, std::int32_t Object::*field) {
        static constexpr std::int32_t numbers[] = {0, 1, 2, 3, -1, 2147483647, -2147483647 - 1};
        object.*field = numbers[below(std::size(numbers))];
    }
    template <class Object>
    void changeLine(Object& object, bool Object::*field) {
        object.*field = !(object.*field);
    }
    template <class Object>
    void changeLine(Object& object, ColorPart color) {
        if constexpr (requires { object.color(); }) {
            Point3D mixed = object.color();
            mixed.*color.part = changed(mixed.*color.part);
            object.set_color(mixed);
        }
    }
    template <class Object>
    void changeLine(Object&, DroppedNumber) {}

    void changeField() {
        switch (below(5)) {
            case 0:
                return changeFieldOf<SymWingSections>(wing(), wingFields());
            case 1:
                return changeFieldOf<SymWingSections>(project_.Stabilizer, wingFields());
            case 2:
                return changeFieldOf<VertWingSection>(project_.Rudder, finFields());
            case 3:
                return changeFieldOf<MeshSections>(body(), Fuselage::bodyFields());
            default:
                return changeFieldOf<ElectroBox>(box(), Equipment::boxFields());
        }
    }

    /// One number of a section, or the same one of all.
    void changeSection() {
        MeshSections& hull = body();
        std::vector<Section> sections = sectionsOf(hull);
        if (sections.empty()) return;
        const std::size_t line = below(std::size(sectionArrays));
        double& value = sections[below(sections.size())][line];
        value = changed(value);
        if (below(6) == 0) {
            const double all = value;
            for (Section& section : sections) section[line] = all;
        }
        putSections(hull, sections);
    }

    void changeSections() { changeSectionsOf(body()); }

    /// A section comes, goes, or changes places.
    void changeSectionsOf(MeshSections& hull) {
        std::vector<Section> sections = sectionsOf(hull);
        changeList(sections, 60);
        putSections(hull, sections);
    }

    template <class Entry>
    void changeList(std::vector<Entry>& list, std::size_t most) {
        if (list.empty()) return;
        const std::size_t one = below(list.size());
        const std::size_t other = below(list.size());
        switch (below(3)) {
            case 0:
                if (list.size() < most)
                    list.insert(list.begin() + static_cast<long>(one), list[other]);
                break;
            case 1:
                list.erase(list.begin() + static_cast<long>(one));
                break;
            default:
                std::swap(list[one], list[other]);
        }
    }

    static std::vector<Point2D> pointsOf(const SymWingSections& panel) {
        std::vector<Point2D> points;
        for (int i = 1; i <= panel.pointCount(); ++i)
            points.push_back({panel.airfoilPoint(i).x, panel.airfoilPoint(i).z});
        return points;
    }

    static void putPoints(SymWingSections& panel, const std::vector<Point2D>& points) {
        panel.nb = static_cast<std::int16_t>(points.size());
        panel.allocate();
        for (int i = 1; i <= panel.nb; ++i) {
            const Point2D& point = points[static_cast<std::size_t>(i) - 1];
            panel.setAirfoilPoint(i, point.x, point.y);
        }
    }

    void changePoint() {
        SymWingSections& panel = wing();
        std::vector<Point2D> points = pointsOf(panel);
        if (points.empty()) return;
        Point2D& point = points[below(points.size())];
        double& value = below(2) == 0 ? point.x : point.y;
        value = changed(value);
        putPoints(panel, points);
    }

    void changePoints() {
        SymWingSections& panel = wing();
        std::vector<Point2D> points = pointsOf(panel);
        changeList(points, 60);
        putPoints(panel, points);
    }

    /// A part comes, goes, or changes places; one stays at least.
    template <class Part>
    void changeParts(OwnedList<Part>& list, std::int16_t& count) {
        std::vector<Part> parts;
        for (int i = 1; i <= count; ++i) parts.push_back(std::as_const(list)(i));
        const Part kept = parts.front();
        changeList(parts, 8);
        if (parts.empty()) parts.push_back(kept);
        count = static_cast<std::int16_t>(parts.size());
        list.resize(count, kept);
        for (int i = 1; i <= count; ++i) list.put(i, parts[static_cast<std::size_t>(i) - 1]);
    }

    void changeWings() { changeParts(project_.Wings, project_.nbWings); }
    void changeBoxes() { changeParts(project_.Equipments, project_.nbEquipments); }
    void changeBodies() {
        changeParts(project_.Fuselages, project_.nbFuselages);
        project_.ObjectList.update(project_.Fuselages, project_.nbFuselages);
    }

    /// The unit, or whether a fuselage is shown.
    void changeOutside() {
        if (below(2) == 0) {
            project_.units = project_.units == inches ? millimetres : inches;
            return;
        }
        auto& rows = project_.ObjectList.rows;
        if (rows.empty()) return;
        const int row = anyOf(static_cast<int>(rows.size()));
        project_.ObjectList.setShown(row, !project_.ObjectList.shown(row));
    }

    Project& project_;
    std::mt19937& random_;
    double seen_ = 0;  ///< the number that was changed last
};

}  // namespace

std::string mutatedProject(std::string_view bytes, std::mt19937& random) {
    Project project = readOf(bytes);
    if (!isSmall(project)) return {};
    Mutation mutation(project, random);
    for (auto changes = random() % 4 + 1; changes > 0; --changes) mutation.change();
    return savedText(project);
}

std::string crossedProjects(std::string_view bytes, std::string_view other, std::mt19937& random) {
    Project project = readOf(bytes);
    const Project giver = readOf(other);
    if (!isSmall(project) || !isSmall(giver)) return {};
    Mutation(project, random).cross(giver);
    return savedText(project);
}

}  // namespace velna::fuzz
