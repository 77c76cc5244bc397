#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "model/Fuselage.h"
#include "model/Plane.h"
#include "output/FiguresJson.h"
#include "output/FiguresText.h"

namespace velna::test {
namespace {

Project defaultAircraft() {
    Project project;
    Plane::setDefaultPlane(project);
    return project;
}

/// The line of `text` that begins with `label` behind its blanks.
std::string lineOf(const std::string& text, const std::string& label) {
    const auto at = text.find("  " + label);
    return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
}

TEST(FlightNumber, IsTheWholeTextAndNotBelowZero) {
    EXPECT_EQ(flightNumber("1800"), 1800);
    EXPECT_EQ(flightNumber("0"), 0);
    EXPECT_EQ(flightNumber("-0"), 0);
    EXPECT_EQ(flightNumber(".5"), 0.5);
    EXPECT_EQ(flightNumber("1e3"), 1000);
    for (const char* text : {"", " ", "-1", "-1E-300", "1800g", "18 00", "1,5", "nan", "inf",
                             "1e999", "0x10", "--5", "1e"})
        EXPECT_EQ(flightNumber(text), std::nullopt) << text;
}

TEST(FiguresText, TellsLengthsInTheProjectsUnit) {
    Project project = defaultAircraft();
    const std::string millimetre = figuresText(figuresOf(project));
    EXPECT_EQ(lineOf(millimetre, "Span"), "  Span                              1400.0 mm");
    EXPECT_EQ(lineOf(millimetre, "Volume"), "  Volume                            2154.3 cm3");
    EXPECT_EQ(lineOf(millimetre, "Panels"), "  Panels                                 1");
    Plane::switchAllToInches(project);
    project.units = inches;
    const std::string inch = figuresText(figuresOf(project));
    EXPECT_EQ(lineOf(inch, "Span"), "  Span                              55.118 in");
    EXPECT_EQ(lineOf(inch, "Projected area"), "  Projected area                    26.600 dm2");
}

TEST(FiguresText, ShowsADashForWhatIsNotThere) {
    Project project = defaultAircraft();
    project.Wings(1).span = 0;
    const std::string text = figuresText(figuresOf(project));
    EXPECT_EQ(lineOf(text, "Aspect ratio"), "  Aspect ratio                           -");
    EXPECT_EQ(lineOf(text, "Mass"), "  Mass                                   -");
}

TEST(FiguresText, HasAGroupForEachFuselage) {
    Project project = defaultAircraft();
    project.nbFuselages = 3;
    Fuselage::resizeFuselages(project);
    const std::string text = figuresText(figuresOf(project));
    EXPECT_NE(text.find("\nFuselage 1\n"), std::string::npos);
    EXPECT_NE(text.find("\nFuselage 3\n"), std::string::npos);
    EXPECT_EQ(nlohmann::json::parse(figuresJson(figuresOf(project)))["fuselages"].size(), 3U);
}

TEST(FiguresOutput, IsTextOrJsonWithWhatWasAskedFor) {
    const Project project = defaultAircraft();
    const Flight flight{1330, 36};
    EXPECT_EQ(figuresOutput(project, {false, flight}), figuresText(figuresOf(project, flight)));
    const std::string json = figuresOutput(project, {true, flight});
    EXPECT_EQ(nlohmann::json::parse(json)["flight"]["wing_loading_g_dm2"], 50);
    EXPECT_EQ(json.back(), '\n');
    EXPECT_NE(json.find("\"mass_g\": 1330, \"speed_kmh\": 36"), std::string::npos);
}

TEST(FiguresJson, ZeroIsNeverNegative) {
    Project project = defaultAircraft();
    project.Wings(1).pos1 = -0.0;
    project.Wings(1).elevation2 = -0.0;
    const std::string json = figuresJson(figuresOf(project, {-0.0, -0.0}));
    EXPECT_EQ(json.find("-0,"), std::string::npos);
    EXPECT_NE(json.find("\"root_x_mm\": 0,"), std::string::npos);
}

}  // namespace
}  // namespace velna::test
