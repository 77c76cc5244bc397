// Memory ends at any block that the program takes for what a user does: the aircraft in hand is as
// it was or as it was to be, one message tells it, and the program goes on. VELNA_BLOCKS=N tries
// the first N blocks each, and some of those behind.

#include <filesystem>
#include <map>
#include <new>

#include "strikes/Blocks.h"
#include "support/CountedMemory.h"
#include "support/GlTape.h"
#include "support/ShellFixture.h"
#include "support/StruckCalls.h"

namespace velna::test {
namespace {

using From = RefusedMemory::From;
using Toolbar::Key;

/// The hand of a user: each thing that it does is an event of its own, and the toolkit has the
/// program take back what an event leaves half done.
template <class Event>
void event(Event happens) {
    try {
        happens();
    } catch (const std::bad_alloc&) {
        program.memory.takeBack();
    }
}

void press(Key key) {
    event([key] { program.toolbar.click(key); });
}

void type(const char* span) {
    event([span] { Main.textEdited(Control::SpanText, span); });
    event([span] { Main.textKeyDown(Control::SpanText, span); });
    event([] { Main.endVisit(); });
}

/// A drag of the wing's tip in the top view, to the right and on.
void dragTip() {
    const Point2D corner = Main.views.wings(1).vtopPoints[1];
    const auto x = static_cast<float>(corner.x);
    const auto y = static_cast<float>(corner.y);
    event([=] { Main.DrawArea_MouseMove(0, 0, x, y); });
    event([=] { Main.DrawArea_MouseDown(1, 0, x, y); });
    for (const float way : {5.0F, 9.0F})
        event([=] { Main.DrawArea_MouseMove(1, 0, x + way, y + way); });
    event([=] { Main.DrawArea_MouseUp(1, 0, x + 9, y + 9); });
}

/// What a user does with the program.
struct Deed {
    const char* name;
    void (*act)();
    std::vector<FileAnswer> files = {};  ///< the answers to its questions, in the folder "out"
    bool yes = false;
    bool solids = false;
};

/// What was chosen is no part of the aircraft.
Project withoutChoices(Project aircraft) {
    aircraft.currentWing = aircraft.currentFuselage = aircraft.currentEquipment = 1;
    for (int i = 1; i <= aircraft.Fuselages.size(); ++i)
        if (!aircraft.Fuselages.promised(i)) aircraft.Fuselages(i).sel_sec = 1;
    return aircraft;
}

bool choicesAreThere(const Project& aircraft) {
    const auto within = [](int choice, int count) { return 1 <= choice && choice <= count; };
    return within(aircraft.currentWing, aircraft.nbWings) &&
           within(aircraft.currentFuselage, aircraft.nbFuselages) &&
           within(aircraft.currentEquipment, aircraft.nbEquipments) &&
           Fuselage::current(aircraft).sectionSelected();
}

class Deeds : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
        // The tape of the picture cannot do without memory itself.
        program.rendering.destroyRenderContext();
        base_ = project;
    }

    /// Finds out what `deed` leaves where nothing is refused.
    void learn(const Deed& deed) {
        reset(deed);
        before_ = left();
        deed.act();
        after_ = left();
        EXPECT_FALSE(messages());
    }
    bool changesAnything() const { return before_ != after_; }
    int blocksFor(const Deed& deed) {
        reset(deed);
        return blocksOf(deed.act);
    }
    /// What there is to blame where memory ends behind so many blocks.
    std::string blame(const Deed& deed, int blocks, From from) {
        reset(deed);
        if (left() != before_) return "the program does not go on";
        {
            const RefusedMemory refused(blocks, from);
            deed.act();
        }
        const Left now = left();
        const bool done = now == after_;
        if (now.aircraft != before_.aircraft && now.aircraft != after_.aircraft)
            return "the aircraft is half changed";
        if (!choicesAreThere(project)) return "what is chosen is not there";
        if (Main.Prefs.InchesOption != (project.units == inches)) return "the unit is another";
        if (!isNameOf(now, before_) && !isNameOf(now, after_))
            return "the aircraft has the name of another";
        for (const auto& [name, bytes] : now.files)
            if (bytes != after_.files.at(name)) return name + " is torn";
        if (from == From::one && !done && messages() != 1) return "nobody is told";
        if (messages() > 1) return "it is told twice";
        return blameForHistory();
    }

private:
    /// What a deed leaves: the aircraft under its name, and the files.
    struct Left {
        Project aircraft;
        std::string name;
        std::map<std::string, std::string> files;

        friend bool operator==(const Left&, const Left&) = default;
    };
    /// Without a name the next save asks for one.
    static bool isNameOf(const Left& now, const Left& one) {
        return now.aircraft == one.aircraft && (now.name == one.name || now.name.empty());
    }
    Left left() const {
        return {withoutChoices(project), Main.projectName, filesIn((folder / "out").string())};
    }

    /// The program with an aircraft of the user's, a step behind it and one to make again.
    void reset(const Deed& deed) {
        std::filesystem::remove_all(folder / "out");
        std::filesystem::create_directory(folder / "out");
        project = base_;
        Main.projectName = "/models/in-hand.vln";
        Main.Prefs.selectUnit(project.units);
        Main.fillCatalogues();
        Main.views.startOver();
        Main.refreshPanels();
        Main.initVTopView();
        Main.beginHistory();
        type("1500");
        type("1600");
        Main.undo();
        Main.savedProject = true;
        forget();
        answer(deed);
    }
    void answer(const Deed& deed) {
        for (const FileAnswer& file : deed.files) {
            const bool own = !file.file.starts_with('/');
            dialogs.files.push_back(
                {own ? (folder / "out" / file.file).string() : file.file, file.filterIndex});
        }
        if (deed.yes) dialogs.yesNo.push_back(true);
        if (deed.solids) dialogs.solidOptions.push_back(SolidOptions{});
    }
    /// What the ports have heard before.
    void forget() {
        dialogs.asked.clear();
        dialogs.files.clear();
        dialogs.yesNo.clear();
        dialogs.solidOptions.clear();
        window.changes.clear();
        drawArea.calls.clear();
        sectionArea.calls.clear();
        GlTape::clear();
    }
    int messages() const {
        return static_cast<int>(
            std::ranges::count(dialogs.asked, "message", &ScriptedDialogs::Asked::kind));
    }
    /// Undo and redo lead back to where they began, and so do an edit and its undo.
    static std::string blameForHistory() {
        const Project hand = withoutChoices(project);
        if (Main.undo() && (!Main.redo() || withoutChoices(project) != hand))
            return "undo and redo end elsewhere";
        type("1900");
        if (project.Wings(project.currentWing).span == hand.Wings(1).span)
            return "no edit is taken";
        if (!Main.undo() || withoutChoices(project) != hand) return "an edit cannot be undone";
        return {};
    }

    Project base_;
    Left before_;
    Left after_;
};

class RefusedDeeds : public Deeds, public ::testing::WithParamInterface<Deed> {};

TEST_P(RefusedDeeds, LeaveTheAircraftAsItWasOrAsItIsToBeAndAreTold) {
    const Deed& deed = GetParam();
    learn(deed);
    EXPECT_TRUE(changesAnything());
    const int count = blocksFor(deed);
    EXPECT_GT(count, 20);
    RecordProperty("blocks", count);
    for (const int blocks : blocksToTry(count, 500)) {
        EXPECT_EQ(blame(deed, blocks, From::one), "") << blocks << " of " << count;
        EXPECT_EQ(blame(deed, blocks, From::there), "") << "from " << blocks << " of " << count;
    }
}

template <Key key>
void pressed() {
    press(key);
}

template <Control button>
void pushed() {
    event([] { Main.buttonPressed(button, 0); });
}

std::vector<Deed> deeds() {
    return {
        {"Open", pressed<Key::Open>, {{VELNA_TEST_DATA "/projects/current/twin_fuselage.vln", 1}}},
        {"New", pressed<Key::New>, {}, true},
        {"Type", [] { type("1700"); }},
        {"Drag", dragTip},
        {"AddWing", pushed<Control::IndexWingPlusButton>},
        {"AddFuselage", pushed<Control::IndexFusPlusButton>},
        {"AddBox", pushed<Control::IndexServosPlusButton>},
        {"Slide", [] { event([] { Main.sliderChanged(Control::CurvatureSlider, 40); }); }},
        {"Inches",
         [] {
             event([] {
                 Main.Prefs.selectUnit(inches);
                 Main.applyPreferences();
             });
         }},
        {"Undo", pressed<Key::Undo>},
        {"Redo", pressed<Key::Redo>},
        {"Save", pressed<Key::Save>, {{"a.vln", 1}}},
        {"Model", pressed<Key::Save>, {{"a.wrl", 2}}},
        {"Drawing", pressed<Key::Save>, {{"a.dxf", 3}}},
        {"Solid", pressed<Key::Save>, {{"a.stl", 4}}, false, true},
    };
}

INSTANTIATE_TEST_SUITE_P(Users, RefusedDeeds, ::testing::ValuesIn(deeds()),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- the judge itself

/// Whether there was memory for a block; who plants a fault passes over that there was none.
bool hasMemory() {
    try {
        return !std::string(100, 'x').empty();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

class JudgeOfDeeds : public Deeds {
protected:
    std::string judged(void (*act)()) {
        const Deed deed{"Planted", act};
        learn(deed);
        return blame(deed, 0, From::one);
    }
};

TEST_F(JudgeOfDeeds, FindsAnAircraftThatIsHalfChanged) {
    EXPECT_EQ(judged([] {
                  project.Wings(1).span = 1;
                  if (hasMemory()) project.Wings(1).length1 = 2;
              }),
              "the aircraft is half changed");
}

TEST_F(JudgeOfDeeds, FindsAnAircraftUnderTheNameOfAnother) {
    EXPECT_EQ(judged([] {
                  Main.projectName = "/b.vln";
                  if (hasMemory()) project.Wings(1).span = 1;
              }),
              "the aircraft has the name of another");
}

TEST_F(JudgeOfDeeds, FindsAChoiceOfWhatIsNotThere) {
    EXPECT_EQ(judged([] {
                  if (!hasMemory()) project.currentWing = 9;
              }),
              "what is chosen is not there");
}

TEST_F(JudgeOfDeeds, FindsPreferencesOfAnotherUnit) {
    EXPECT_EQ(judged([] {
                  if (!hasMemory()) Main.Prefs.selectUnit(inches);
              }),
              "the unit is another");
}

TEST_F(JudgeOfDeeds, FindsATornFile) {
    EXPECT_EQ(judged([] {
                  const bool whole = hasMemory();
                  writeFile(program.shell.desktop->programFolder() + "../out/a",
                            whole ? "whole" : "wh");
                  if (!whole) program.memory.takeBack();
              }),
              "a is torn");
}

TEST_F(JudgeOfDeeds, FindsThatNobodyIsToldOrTwice) {
    EXPECT_EQ(judged([] {
                  if (hasMemory()) project.Wings(1).span = 1;
              }),
              "nobody is told");
    EXPECT_EQ(judged([] {
                  if (hasMemory()) return;
                  program.memory.takeBack();
                  program.memory.takeBack();
              }),
              "it is told twice");
}

TEST_F(JudgeOfDeeds, FindsAHistoryThatDoesNotGoOn) {
    EXPECT_EQ(judged([] {
                  if (!hasMemory()) Main.history.open(project);
              }),
              "an edit cannot be undone");
}

}  // namespace
}  // namespace velna::test
