#include "tests/gui/Driver.h"

#include "registers/RecordList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
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

std::string Names(const RecordList& list) {
    QStringList names;
    for (int row = 0; row < list.RowCount(); ++row)
        names.append(list.CellText(row, 0));
    return names.join(QStringLiteral(", ")).toStdString();
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
