#include "tests/windows/support/Accessibility.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeySequence>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

#include <map>

void ExpectAccessible(QWidget& dialog) {
    std::map<QChar, std::string> mnemonics;
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        if (!control->isVisibleTo(&dialog))
            continue;
        QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(control);
        const std::string name = control->objectName().toStdString();
        // The edit inside a box is named by the box.
        const bool isPart = name.rfind("qt_", 0) == 0;
        if ((control->focusPolicy() & Qt::TabFocus) && control->focusProxy() == nullptr && !isPart) {
            EXPECT_TRUE(seen != nullptr && !seen->text(QAccessible::Name).isEmpty())
                << dialog.objectName().toStdString() << " " << control->metaObject()->className() << " " << name;
        }
        const auto* label = qobject_cast<QLabel*>(control);
        if (label != nullptr && label->buddy() == nullptr)
            continue;
        const QKeySequence key = QKeySequence::mnemonic(control->property("text").toString());
        if (!key.isEmpty()) {
            const QChar letter = key.toString().back();
            EXPECT_FALSE(mnemonics.contains(letter)) << name << " and " << mnemonics[letter];
            mnemonics[letter] = name;
        }
    }
}

void ExpectReadByTab(QWidget& dialog) {
    constexpr int RowHeight = 12;
    const auto middle = [&](QWidget* control) { return control->mapTo(&dialog, control->rect().center()); };
    // Down a row, or over to a column on the right.
    const auto isBack = [&](QWidget* from, QWidget* to) {
        return middle(to).y() < middle(from).y() - RowHeight && middle(to).x() <= middle(from).x();
    };
    QWidget* const first = dialog.focusWidget();
    QList<QWidget*> order;
    for (QWidget* at = first; at != nullptr && !order.contains(at) && order.size() < 100; at = dialog.focusWidget()) {
        order.append(at);
        QTest::keyClick(at, Qt::Key_Tab);
    }
    EXPECT_EQ(first, dialog.focusWidget()) << "the round";
    int back = 0;
    std::string read;
    for (qsizetype i = 0; i < order.size(); ++i) {
        back += isBack(order[i], order[(i + 1) % order.size()]);
        read += order[i]->objectName().toStdString() + " ";
    }
    EXPECT_LE(back, 1) << "only from the last to the first: " << read;
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        const bool takesFocus = (control->focusPolicy() & Qt::TabFocus) && control->focusProxy() == nullptr;
        const bool isChoice = qobject_cast<QRadioButton*>(control) != nullptr;
        if (takesFocus && !isChoice && control->isEnabled() && control->isVisibleTo(&dialog) &&
            !control->objectName().startsWith(u"qt_")) {
            EXPECT_TRUE(order.contains(control)) << control->objectName().toStdString();
        }
    }
}
