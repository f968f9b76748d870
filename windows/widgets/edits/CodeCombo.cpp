#include "windows/widgets/edits/CodeCombo.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>

namespace {

class TypedBlanks : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* combo, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_Space || key->modifiers() != Qt::NoModifier)
            return false;
        // Without its name the key is but a letter to the list.
        QKeyEvent letter(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QStringLiteral(" "));
        QCoreApplication::sendEvent(combo, &letter);
        return true;
    }
};

} // namespace

void TypingSelects(QComboBox& combo) {
    combo.installEventFilter(new TypedBlanks(&combo));
}

void FillCodes(QComboBox& combo, const QStringList& texts) {
    for (int code = 0; code < texts.size(); ++code)
        combo.addItem(texts[code], code);
    TypingSelects(combo);
    combo.setCurrentIndex(-1);
}

void SelectCode(QComboBox& combo, std::int32_t code) {
    combo.setCurrentIndex(combo.findData(code));
}

std::int32_t ChosenCode(const QComboBox& combo) {
    return combo.currentIndex() < 0 ? -1 : combo.currentData().toInt();
}
