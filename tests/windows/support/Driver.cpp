#include "tests/windows/support/Driver.h"

#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

namespace {
constexpr int LongestWait = 3000;
}

Steps::Steps() {
    Look();
}

Steps::~Steps() {
    EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " dialogs did not come";
}

void Steps::Look() {
    // A timer of its own each time: one that is being served does not fire again inside a step's own dialogs.
    QTimer::singleShot(1, &m_alive, [this] { Look(); });
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == m_current)
        return;
    // Shortcuts reach only the active window.
    if (!modal->isActiveWindow() && ++m_waited < LongestWait)
        return;
    if (m_steps.empty() && m_otherwise)
        m_steps.push_back(m_otherwise);
    if (m_steps.empty()) {
        if (++m_waited < LongestWait)
            return;
        ADD_FAILURE() << "nobody closes " << modal->windowTitle().toStdString();
        modal->close();
        return;
    }
    m_waited = 0;
    const Step step = m_steps.front();
    m_steps.erase(m_steps.begin());
    QWidget* before = std::exchange(m_current, modal);
    try {
        step(*modal);
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
    m_current = before;
    if (modal->isVisible()) {
        ADD_FAILURE() << "left open: " << modal->windowTitle().toStdString();
        modal->close();
    }
}

void TypeText(QWidget& dialog, const char* edit, const char* text) {
    auto& line = Find<QLineEdit>(dialog, edit);
    line.setFocus();
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_Delete);
    for (const QChar letter : QString::fromUtf8(text)) {
        if (letter.unicode() < 128)
            QTest::keyClick(&line, letter.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, &line, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

void Pick(QWidget& dialog, const char* combo, int row) {
    auto& box = Find<QComboBox>(dialog, combo);
    QTest::keyClick(&box, Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        QTest::keyClick(&box, Qt::Key_Down);
}

void Click(QWidget& dialog, const char* button) {
    auto& control = Find<QAbstractButton>(dialog, button);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(10, control.height() / 2));
}

std::string Focus(const QWidget& dialog) {
    const QWidget* control = dialog.window()->focusWidget();
    return control == nullptr ? "none" : control->objectName().toStdString();
}

std::string Rows(const RecordList& list) {
    QStringList rows;
    for (int row = 0; row < list.RowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < list.model()->columnCount(); ++column)
            cells.append(list.CellText(row, column));
        rows.append(cells.join(QLatin1Char('|')));
    }
    return rows.join(QLatin1Char('\n')).toStdString();
}

std::string Names(const RecordList& list, int column) {
    QStringList names;
    for (int row = 0; row < list.RowCount(); ++row)
        names.append(list.CellText(row, column));
    return names.join(QStringLiteral(", ")).toStdString();
}

std::string AllRows(const StoreFolder& folder) {
    std::string all;
    for (const std::string table : {"Cover", "CoverDiscard", "CompCover", "CompCover_Item", "Product", "Prod_CoverDT",
                                    "Prod_Cover", "Move", "Move_Prod", "Move_Cover"})
        all += folder.AskAll(("SELECT * FROM " + table).c_str()) + "\n";
    return all;
}

void ClickRow(RecordList& list, int row, Qt::KeyboardModifiers modifiers) {
    const QPoint place = list.visualRect(list.model()->index(row, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, place);
}

void ClickHeader(RecordList& list, int column) {
    QHeaderView* header = list.horizontalHeader();
    const QPoint place(header->sectionViewportPosition(column) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
}

void DoubleClickRow(RecordList& list, int row) {
    ClickRow(list, row);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(row, 0)).center());
}

std::string ShownBy(QWidget& dialog, const char* control) {
    auto& widget = Find<QWidget>(dialog, control);
    if (const auto* combo = qobject_cast<QComboBox*>(&widget))
        return combo->currentText().toStdString();
    if (const auto* button = qobject_cast<QAbstractButton*>(&widget))
        return !button->isCheckable() ? button->text().toStdString() : button->isChecked() ? "ano" : "ne";
    if (const auto* line = qobject_cast<QLineEdit*>(&widget))
        return line->text().toStdString();
    // What holds an edit: a spin box.
    const auto* inner = widget.findChild<QLineEdit*>();
    return inner != nullptr ? inner->text().toStdString() : "no text in " + std::string(control);
}

std::string TakeMenu() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr)
        return "no menu";
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts.append(action->isSeparator() ? QStringLiteral("|")
                                           : action->text().replace(QLatin1Char('\t'), QLatin1Char(' ')) +
                                                 (action->isEnabled() ? QStringLiteral("+") : QString()));
    menu->close();
    return texts.join(QLatin1Char(' ')).toStdString();
}

Act InTurn(std::vector<Act> acts) {
    return [acts = std::move(acts)](QWidget& dialog) {
        for (const Act& act : acts)
            act(dialog);
    };
}

Act Typed(const char* edit, const char* text) {
    return [=](QWidget& dialog) { TypeText(dialog, edit, text); };
}

Act Picked(const char* combo, int row) {
    return [=](QWidget& dialog) { Pick(dialog, combo, row); };
}

Act Clicked(const char* button) {
    return [=](QWidget& dialog) { Click(dialog, button); };
}

Act Pressed(Qt::Key key) {
    return [=](QWidget& dialog) { QTest::keyClick(&dialog, key); };
}

Act Dated(const char* date, const QDate& day) {
    return [=](QWidget& dialog) { TypeText(dialog, date, day.toString(u"d.M.yyyy").toLatin1().constData()); };
}

Act Chose(const char* list, int row) {
    return [=](QWidget& dialog) { ClickRow(Find<RecordList>(dialog, list), row); };
}

Act Emptied(const char* combo) {
    return [=](QWidget& dialog) { Find<QComboBox>(dialog, combo).setCurrentIndex(-1); };
}

Act ShowsTitle(const char* title) {
    return [=](QWidget& dialog) { EXPECT_EQ(title, dialog.windowTitle().toStdString()); };
}

Act ShowsFocus(const char* control) {
    return [=](QWidget& dialog) { EXPECT_EQ(control, Focus(dialog)); };
}

Act Shows(const char* control, const char* text) {
    return [=](QWidget& dialog) { EXPECT_EQ(text, ShownBy(dialog, control)) << control; };
}

Act ShowsSelected(const char* edit, const char* text) {
    return [=](QWidget& dialog) { EXPECT_EQ(text, Find<QLineEdit>(dialog, edit).selectedText().toStdString()); };
}

Act ShowsEnabled(std::vector<const char*> controls, bool enabled) {
    return [=](QWidget& dialog) {
        for (const char* control : controls)
            EXPECT_EQ(enabled, Find<QWidget>(dialog, control).isEnabled()) << control;
    };
}

Act Refused(ScriptedMessages& messages, const char* button, const char* warning, const char* focus) {
    return [=, &messages](QWidget& dialog) {
        messages.Expect(Czech(warning), Message::Icon::Warning);
        Find<QWidget>(dialog, button).setFocus();
        Click(dialog, button);
        EXPECT_TRUE(dialog.isVisible()) << warning;
        EXPECT_EQ(focus, Focus(dialog)) << warning;
    };
}
