// The print form's fields about ribs and the printer, and the form that asks about parts to cut.

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "shell/PrintCommand.h"
#include "shell/qt/PrintSelectForm.h"
#include "shell/qt/RibForm.h"
#include "support/EditorBench.h"
#include "support/ScriptedDialogs.h"

namespace velna {
namespace {

class PrintForm : public test::EditorTest {
protected:
    PrintForm() {
        ports.dialogs = &dialogs;
        dialogs.dismissals = {true, true, true, true};
    }
    static void type(QDialog& form, const char* name, const char* text) {
        auto* field = form.findChild<QLineEdit*>(name);
        field->clear();
        field->insert(text);
        Q_EMIT field->textEdited(text);
    }
    static void press(QDialog& form, const char* name) {
        form.findChild<QPushButton*>(name)->click();
    }
    static QString shown(const QDialog& form, const char* name) {
        return form.findChild<QLineEdit*>(name)->text();
    }

    test::ScriptedDialogs dialogs;
    ShellPorts ports;
    Settings settings;
    PrintSelectRecord record;
    FigureSheet figures{Main};
    PrintCommand command{Main, record, settings, ports, figures};
};

TEST_F(PrintForm, AdditionsAreUntickedAndPlain) {
    const PrintSelectForm form(command, nullptr);
    for (const char* name : {"CheckWing", "CheckRibs"})
        EXPECT_FALSE(form.findChild<QCheckBox*>(name)->isChecked()) << name;
    EXPECT_EQ(shown(form, "StationsText"), "8");
    EXPECT_EQ(shown(form, "SkinText"), "0");
    EXPECT_EQ(shown(form, "SlotsText"), "");
    EXPECT_EQ(shown(form, "CorrectionXText"), "1");
    EXPECT_EQ(shown(form, "CorrectionYText"), "1");
}

TEST_F(PrintForm, FieldsGoIntoTheRecord) {
    PrintSelectForm form(command, nullptr);
    form.findChild<QCheckBox*>("CheckRibs")->setChecked(true);
    type(form, "SpacingText", "60");
    type(form, "SkinText", "1.5");
    type(form, "SlotsText", "30,6,4,top; 30,6,4,bottom");
    type(form, "CorrectionXText", "1.01");
    press(form, "PrintCommand");
    EXPECT_FALSE(record.cancel);
    EXPECT_TRUE(record.ribs);
    EXPECT_FALSE(record.wing);
    EXPECT_EQ(record.wishes.stations.spacing, 60) << "a typed spacing is the one that counts";
    EXPECT_EQ(record.wishes.skin, 1.5);
    EXPECT_EQ(record.wishes.spars.size(), 2U);
    EXPECT_EQ(record.correction, (PrinterCorrection{1.01, 1}));
}

TEST_F(PrintForm, FieldThatHoldsNoneKeepsTheFormOpen) {
    for (const char* name : {"StationsText", "SkinText", "SlotsText", "CorrectionYText"}) {
        PrintSelectForm form(command, nullptr);
        form.show();
        type(form, name, "many");
        press(form, "PrintCommand");
        EXPECT_TRUE(form.isVisible()) << name;
        EXPECT_TRUE(record.cancel) << name;
        EXPECT_NE(dialogs.asked.back().text.find("many"), std::string::npos) << name;
        form.close();
    }
    EXPECT_EQ(record.wishes.skin, 0);
}

TEST_F(PrintForm, InchProjectsTypeInches) {
    Main.project.units = inches;
    record.wishes.skin = 1.5875;
    PrintSelectForm form(command, nullptr);
    EXPECT_EQ(shown(form, "SkinText"), "0.0625");
    type(form, "SkinText", "0.125");
    press(form, "PrintCommand");
    EXPECT_DOUBLE_EQ(record.wishes.skin, 3.175);
    Main.project.units = millimetres;
}

TEST_F(PrintForm, PartsToCutAreAskedForLikewise) {
    RibWishes wishes;
    RibForm form(dialogs, wishes, millimetres, nullptr);
    form.show();
    type(form, "SkinText", "-2");
    press(form, "OkCommand");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(wishes.skin, 0);
    type(form, "SkinText", "2");
    type(form, "SpacingText", "70");
    type(form, "StationsText", "12");
    form.findChild<QCheckBox*>("EachCheck")->setChecked(true);
    press(form, "OkCommand");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(wishes.skin, 2);
    EXPECT_TRUE(wishes.each);
    EXPECT_EQ(wishes.stations.count, 12);
    EXPECT_EQ(wishes.stations.spacing, 0);
}

}  // namespace
}  // namespace velna
