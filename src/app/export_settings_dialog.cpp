#include "app/export_settings_dialog.h"

#include "gamelist/small_dialog_settings.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace zunbrix {

namespace {

constexpr int kTitleText = 269;
constexpr int kRomTypeText = 270;
constexpr int kPrgSizeText = 271;
constexpr int kConfirmText = 122;

// A group box of radios, one for each label, with the button group that reports the chosen index.
QButtonGroup* addRadioGroup(QGroupBox* box, const QStringList& labels, QRadioButton** radios)
{
    auto* layout = new QHBoxLayout(box);
    auto* group = new QButtonGroup(box);
    for (int i = 0; i < labels.size(); ++i) {
        radios[i] = new QRadioButton(labels[i], box);
        group->addButton(radios[i], i);
        layout->addWidget(radios[i]);
    }
    return group;
}

} // namespace

CExportSettingsDialog::CExportSettingsDialog(Language language, QWidget* parent)
    : CSmallDialog(language, parent)
{
    romTypeGroup_ = new QGroupBox(this);
    prgSizeGroup_ = new QGroupBox(this);
    QButtonGroup* romTypes = addRadioGroup(romTypeGroup_, {QStringLiteral("COOLBOY"), QStringLiteral("COOLGIRL")},
                                           romTypeRadios_.data());
    QButtonGroup* prgSizes = addRadioGroup(
        prgSizeGroup_, {QStringLiteral("128KB"), QStringLiteral("256KB"), QStringLiteral("512KB")},
        prgSizeRadios_.data());
    confirm_ = new QPushButton(this);
    confirm_->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(romTypeGroup_);
    layout->addWidget(prgSizeGroup_);
    layout->addWidget(confirm_, 0, Qt::AlignRight);

    const ExportChoice stored = ReadExportChoice();
    romTypes->button(stored.romType)->setChecked(true);
    prgSizes->button(stored.prgSize)->setChecked(true);
    // Connected after the stored choice is shown: only the user's clicks write.
    connect(romTypes, &QButtonGroup::idClicked, this, &StoreExportRomType);
    connect(prgSizes, &QButtonGroup::idClicked, this, &StoreExportPrgSize);
    connect(confirm_, &QPushButton::clicked, this, &QDialog::accept);
    applyTexts();
}

void CExportSettingsDialog::applyTexts()
{
    setWindowTitle(text(kTitleText));
    romTypeGroup_->setTitle(text(kRomTypeText));
    prgSizeGroup_->setTitle(text(kPrgSizeText));
    confirm_->setText(text(kConfirmText));
}

} // namespace zunbrix
