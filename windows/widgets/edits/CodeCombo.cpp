#include "windows/widgets/edits/CodeCombo.h"

#include <QComboBox>

void FillCodes(QComboBox& combo, const QStringList& texts) {
    for (int code = 0; code < texts.size(); ++code)
        combo.addItem(texts[code], code);
    combo.setCurrentIndex(-1);
}

void SelectCode(QComboBox& combo, std::int32_t code) {
    combo.setCurrentIndex(combo.findData(code));
}

std::int32_t ChosenCode(const QComboBox& combo) {
    return combo.currentIndex() < 0 ? -1 : combo.currentData().toInt();
}
