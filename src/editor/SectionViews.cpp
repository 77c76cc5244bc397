#include "editor/Views.h"
#include "model/Fuselage.h"

namespace velna {
namespace {

/// The old lines go before the body grows: the redraw would look for the new section's among them.
void insertSection(MainForm& form, const SectionView& sections) {
    MeshSections& body = Fuselage::current(form.project);
    if (form.view.erases()) (form.views.fuselage().*sections.erase)(form.canvas(), body);
    if (Fuselage::meshFits(form.project, &body, body.nb_sections + 1, body.nb_cross))
        body.insertSection((form.pointer.xloc - form.view.xoff) / form.view.zoom - body.pos_offset);
    form.view.nothingToErase = true;
    (form.views.*sections.draw)(form.canvas(), noSection, FuselageLook::bar);
    form.view.nothingToErase = false;
}

void showSectionCount(MainForm& form, std::int16_t button) {
    MeshSections& body = Fuselage::current(form.project);
    form.setScrollMaximum(Control::FuselageScroll, body.nb_sections);
    // A bar that stood below its new maximum runs no event: the selection may still lie on the
    // section that is gone.
    if (body.sel_sec > body.nb_sections) {
        body.sel_sec = body.nb_sections;
        form.updateFuselageInterface();
    }
    if (form.renderPressed() && button == MouseButton::left) form.window->renderScene(true);
}

/// Takes a section in or out where the press with Ctrl has found one; the second test meets the
/// state that the first has left, on the same `paint`. True where the press was on a bar.
bool insertOrRemoveSection(MainForm& form, std::int16_t button, const SectionView& sections) {
    const std::int32_t& paint = form.views.fuselage().grip.paint;
    if (paint == FuselagePart::gap) {
        insertSection(form, sections);
        showSectionCount(form, button);
    }
    if (paint != FuselagePart::bar) return false;
    Fuselage::current(form.project).removeSection();
    form.DrawArea->clear();
    (form.views.*sections.draw)(form.canvas(), noSection, FuselageLook::bar);
    showSectionCount(form, button);
    return true;
}

}  // namespace

void enterSections(MainForm& form, const SectionView& sections) {
    form.setVisible(Control::FuselageVTopFrame, false);
    form.setEnabled(Control::HTopButton, true);
    form.setVisible(Control::SmoothTopCommand, !sections.widths);
    form.setVisible(Control::SmoothDownCommand, !sections.widths);
    form.setVisible(Control::SmoothWidthCommand, sections.widths);
}

bool pressSections(MainForm& form, std::int16_t button, const Pointer& pointer,
                   const SectionView& sections) {
    if (form.equipmentTab()) {
        (form.views.*sections.testBoxes)(pointer);
        return false;
    }
    if (!form.project.ObjectList.shown(form.project.currentFuselage)) return false;
    FuselageView& view = form.views.fuselage();
    MeshSections& body = Fuselage::current(form.project);
    view.grip.paint = (view.*sections.test)(body, pointer);
    (view.*sections.remember)(body, pointer.shiftkey);
    return pointer.ctrlkey && insertOrRemoveSection(form, button, sections);
}

void releaseSections(MainForm& form) {
    if (form.equipmentTab()) {
        form.views.letGoOfBoxes();
    } else {
        form.zoomSectionSet();
    }
}

}  // namespace velna
