#include <span>

#include "model/Equipment.h"

namespace velna::Equipment {

namespace {

/// A commercial model as its maker lists it, millimetres.
struct ListedModel {
    const char* name;
    double length;
    double width;
    double height;
    double weight;
};

constexpr ListedModel servos[] = {
    {"Custom", 25, 15, 25, 15},    {"HS60", 26, 13, 24, 14},        {"HS80", 28, 13.7, 28, 17.5},
    {"HS101", 34, 13.8, 32, 26.5}, {"HS300", 41, 20, 36, 44.5},     {"S3001", 40.4, 19.8, 36, 45.1},
    {"S3002", 31, 16, 30.2, 35},   {"S3003", 40.4, 19.8, 36, 37.2}, {"S3101", 28, 13, 29.7, 17},
    {"S5102", 28, 13, 29, 22},     {"Micro3BB", 32, 15, 33, 24},    {"SuperFlBB", 42.5, 11, 41, 24},
    {"MicroMc", 32, 15, 33, 28},   {"RoyalBB", 41, 21, 40, 46},     {"EuropaBB", 39, 19, 36, 46},
    {"RoyalMc", 41, 21, 40, 46},   {"ProfiMc", 39, 19, 36, 49},     {"PowerMc", 47, 23, 47, 82},
    {"JumboMc", 60, 30, 60, 162},
};

constexpr ListedModel receivers[] = {
    {"Custom", 25, 25, 15, 0},
    {"Supreme", 55.43, 33.74, 19.28, 0},
    {"Micro535", 45.79, 26.51, 19.28, 0},
    {"Platinum", 57.84, 36.15, 21.69, 0},
    {"Pico4", 42, 16, 16, 12},
    {"Micro5/7", 53, 29, 16, 30},
    {"Mini9", 51, 39, 21, 33},
    {"MiniDS", 51, 39, 21, 42},
    {"RX12", 70, 41, 25, 64},
    {"C12", 53, 36, 15, 29},
    {"C16", 62, 36, 21, 45},
    {"C18", 51, 36, 21, 45},
};

constexpr ListedModel accumulators[] = {
    {"Custom", 100, 20, 20, 100},
    {"7Elts-1000SRC", 130, 47, 24, 320},
    {"7Elts-2000SRC", 152, 46, 23, 420},
};

std::vector<CatalogueEntry> inUnit(std::span<const ListedModel> models, int unit) {
    const auto length = [unit](double value) {
        return unit == inches ? Plane::mmToInches(value) : value;
    };
    std::vector<CatalogueEntry> entries;
    for (const ListedModel& model : models) {
        entries.push_back({model.name, length(model.height), length(model.width),
                           length(model.length), model.weight});
    }
    return entries;
}

}  // namespace

std::vector<CatalogueEntry> servoTypes(int unit) {
    return inUnit(servos, unit);
}

std::vector<CatalogueEntry> receiverTypes(int unit) {
    return inUnit(receivers, unit);
}

std::vector<CatalogueEntry> accuTypes(int unit) {
    return inUnit(accumulators, unit);
}

std::vector<CatalogueEntry> catalogue(int kind, int unit) {
    switch (kind) {
        case BoxKind::servo:
            return servoTypes(unit);
        case BoxKind::receiver:
            return receiverTypes(unit);
        case BoxKind::accumulator:
            return accuTypes(unit);
        default:
            return {};
    }
}

}  // namespace velna::Equipment
