#pragma once

#include <QGroupBox>

#include "output/RibTexts.h"

class QGridLayout;
class QLineEdit;
class QRadioButton;

namespace velna {

/// The fields that tell what ribs, stations and sections shall be like, in the project's unit.
class RibBox : public QGroupBox {
public:
    RibBox(const RibWishes& wishes, int units, QWidget* parent);

    /// Takes the fields over. Failed with a word, `wishes` left alone, where one is none.
    Outcome read(RibWishes& wishes) const;

private:
    QLineEdit* addField(int row, const char* name, QWidget* caption, const std::string& text,
                        const char* behind);
    QRadioButton* addChoice(const char* name, const char* caption, bool on);

    QGridLayout* grid_;
    double unit_;  // millimetres
    QRadioButton* bySpacing_ = nullptr;
    QLineEdit* stations_ = nullptr;
    QLineEdit* spacing_ = nullptr;
    QLineEdit* skin_ = nullptr;
    QLineEdit* slots_ = nullptr;
};

}  // namespace velna
