#pragma once

#include <QFrame>

class QCalendarWidget;

/// A month under the field that opened it. A click or Enter chooses a day, Esc goes away; then it deletes itself.
class CalendarPopup : public QFrame {
    Q_OBJECT

public:
    CalendarPopup(QWidget& field, const QDate& shown);

signals:
    void chosen(const QDate& day);

private:
    void PutUnder(const QWidget& field);
    void Choose(const QDate& day);

    QCalendarWidget* m_calendar;
};
