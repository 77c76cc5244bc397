#include <array>
#include <string>
#include <vector>

#include "support/FreshModel.h"

// The makers' lists, held against what a calculator makes of them: a table beside the table would
// repeat its slips.

namespace velna {
namespace {

using Catalogues = FreshModel;
using Catalogue = std::vector<CatalogueEntry>;

/// The sum of a column, and its sum with each value times its row's number from 1 on, which a row
/// in another place changes.
struct Column {
    double CatalogueEntry::*field;
    double sum;
    double byPlace;
};

struct Totals {
    Catalogue catalogue;
    std::string names;  ///< in order, as the list shows them
    std::array<Column, 4> columns;
};

using E = CatalogueEntry;

/// What the lists add up to in millimetres and in the makers' weights.
std::array<Totals, 3> totals(int unit) {
    return {{
        {Equipment::servoTypes(unit),
         "Custom HS60 HS80 HS101 HS300 S3001 S3002 S3003 S3101 S5102 Micro3BB SuperFlBB MicroMc "
         "RoyalBB EuropaBB RoyalMc ProfiMc PowerMc JumboMc ",
         {{{&E::length, 695.3, 7558.6},
           {&E::width, 331.1, 3587.5},
           {&E::height, 671.9, 7359.7},
           {&E::weight, 780.8, 9983.2}}}},
        {Equipment::receiverTypes(unit),
         "Custom Supreme Micro535 Platinum Pico4 Micro5/7 Mini9 MiniDS RX12 C12 C16 C18 ",
         {{{&E::length, 617.06, 4251.59},
           {&E::width, 393.4, 2712.61},
           {&E::height, 231.25, 1547.16},
           {&E::weight, 300, 2708}}}},
        {Equipment::accuTypes(unit),
         "Custom 7Elts-1000SRC 7Elts-2000SRC ",
         {{{&E::length, 382, 816},
           {&E::width, 113, 252},
           {&E::height, 67, 137},
           {&E::weight, 840, 2000}}}},
    }};
}

/// A weight is a weight in any project; lengths are in its unit, of so many millimetres.
void expectTotals(int projectUnit, double unit) {
    for (const Totals& expected : totals(projectUnit)) {
        std::string names;
        for (const CatalogueEntry& row : expected.catalogue) names += row.name + " ";
        EXPECT_EQ(names, expected.names);
        for (std::size_t n = 0; n < expected.columns.size(); ++n) {
            const Column& column = expected.columns[n];
            const double divisor = column.field == &E::weight ? 1 : unit;
            double sum = 0;
            double byPlace = 0;
            for (std::size_t i = 0; i < expected.catalogue.size(); ++i) {
                const double value = expected.catalogue[i].*column.field;
                sum += value;
                byPlace += static_cast<double>(i + 1) * value;
            }
            EXPECT_NEAR(sum, column.sum / divisor, 1e-9) << names << ", column " << n;
            EXPECT_NEAR(byPlace, column.byPlace / divisor, 1e-9) << names << ", column " << n;
        }
    }
}

TEST_F(Catalogues, HaveTheMakersRowsInMillimetres) {
    expectTotals(millimetres, 1);
}

TEST_F(Catalogues, AreGivenInTheUnitAskedFor) {
    expectTotals(inches, 25.4);
}

TEST_F(Catalogues, ARowIsGivenToTheCurrentBoxOfItsKind) {
    Equipments(1).box = 1;
    Equipment::applyCatalogueRow(project, 2);
    EXPECT_EQ(Equipments(1).length, 45.79);
    EXPECT_EQ(Equipments(1).width, 26.51);
    EXPECT_EQ(Equipments(1).height, 19.28);
    EXPECT_EQ(Equipments(1).weight, 0);
}

}  // namespace
}  // namespace velna
