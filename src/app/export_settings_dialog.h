#pragma once

#include "app/small_dialog.h"

#include <array>

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace zunbrix {

// What Export information is made for: the multicart ROM type and the menu's PRG size. Each radio stores its
// value the moment it is chosen, so Confirm and the close box only close. The main window opens it with exec()
// on command 40100 and reads nothing back; it emits no signals of its own.
class CExportSettingsDialog : public CSmallDialog {
public:
    explicit CExportSettingsDialog(Language language, QWidget* parent = nullptr);

    QRadioButton* romTypeRadio(int romType) const { return romTypeRadios_[static_cast<std::size_t>(romType)]; }
    QRadioButton* prgSizeRadio(int prgSize) const { return prgSizeRadios_[static_cast<std::size_t>(prgSize)]; }
    QPushButton* confirmButton() const { return confirm_; }

private:
    void applyTexts() override;

    QGroupBox* romTypeGroup_ = nullptr;
    QGroupBox* prgSizeGroup_ = nullptr;
    std::array<QRadioButton*, 2> romTypeRadios_{};
    std::array<QRadioButton*, 3> prgSizeRadios_{};
    QPushButton* confirm_ = nullptr;
};

} // namespace zunbrix
