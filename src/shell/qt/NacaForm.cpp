#include "shell/qt/NacaForm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "common/ValueReader.h"
#include "model/NacaSection.h"
#include "shell/qt/OutlinePicture.h"

namespace velna {
namespace {

constexpr QSize pictureSize(360, 120);
constexpr int longestNumber = 20;  // with the name before it

}  // namespace

NacaForm::NacaForm(const NacaAnswer& preset, QWidget* parent)
    : QDialog(parent),
      number_(new QLineEdit(QString::fromStdString(preset.number))),
      points_(new QSpinBox),
      closed_(new QCheckBox("&Closed trailing edge")),
      picture_(new OutlinePicture),
      word_(new QLabel) {
    setObjectName("NacaSection");
    setWindowTitle("NACA section");
    setProperty("helpPage", "naca");
    new QVBoxLayout(this);
    addFields(preset);
    picture_->setObjectName("NacaOutline");
    picture_->setAccessibleName("Outline of the section");
    picture_->setMinimumSize(pictureSize);
    layout()->addWidget(picture_);
    word_->setObjectName("NacaWord");
    layout()->addWidget(word_);
    addButtons();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    number_->selectAll();
    showSection();
}

void NacaForm::addFields(const NacaAnswer& preset) {
    number_->setObjectName("NacaNumber");
    number_->setMaxLength(longestNumber);
    points_->setObjectName("NacaPoints");
    points_->setRange(NacaSection::fewestPoints, NacaSection::mostPoints);
    points_->setValue(preset.points);
    closed_->setObjectName("NacaClosed");
    closed_->setChecked(preset.closed);
    auto* fields = new QFormLayout;
    fields->addRow("&Number", number_);
    fields->addRow("&Points", points_);
    fields->addRow(QString(), closed_);
    fields->addRow(QString(), panelOptions(preset.everyPanel));
    static_cast<QVBoxLayout*>(layout())->addLayout(fields);
    connect(number_, &QLineEdit::textChanged, this, [this] { showSection(); });
    connect(points_, &QSpinBox::valueChanged, this, [this] { showSection(); });
    connect(closed_, &QCheckBox::toggled, this, [this] { showSection(); });
}

QWidget* NacaForm::panelOptions(bool everyPanel) {
    auto* options = new QWidget;
    auto* row = new QHBoxLayout(options);
    row->setContentsMargins(0, 0, 0, 0);
    auto* thisPanel = new QRadioButton("On &this panel");
    thisPanel->setObjectName("NacaThisPanel");
    everyPanel_ = new QRadioButton("On &all panels");
    everyPanel_->setObjectName("NacaAllPanels");
    (everyPanel ? everyPanel_ : thisPanel)->setChecked(true);
    row->addWidget(thisPanel);
    row->addWidget(everyPanel_);
    row->addStretch();
    return options;
}

void NacaForm::addButtons() {
    auto* buttons = new QDialogButtonBox;
    ok_ = buttons->addButton("&OK", QDialogButtonBox::AcceptRole);
    ok_->setObjectName("OkCommand");
    ok_->setDefault(true);
    QPushButton* cancel = buttons->addButton("Cance&l", QDialogButtonBox::RejectRole);
    cancel->setObjectName("CancelCommand");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

NacaAnswer NacaForm::answer() const {
    return {number_->text().toStdString(), points_->value(), closed_->isChecked(),
            everyPanel_->isChecked()};
}

void NacaForm::showSection() {
    const NacaAnswer asked = answer();
    QString word;
    try {
        const auto digits = NacaSection::number(asked.number);
        const QString description =
            QString("%1 points, %2 % thick").arg(asked.points).arg(100 * digits.thickness);
        picture_->setOutline(NacaSection::outline(digits, asked.points, asked.closed), description);
    } catch (const ReadFailure& failure) {
        word = QString::fromStdString(std::string("No section: ") + failure.what());
        picture_->setOutline({}, word);
    }
    word_->setText(word);
    ok_->setEnabled(word.isEmpty());
}

}  // namespace velna
