#include "windows/widgets/edits/DateEdit.h"

DateEdit::DateEdit(QWidget* parent) : QDateEdit(parent) {
    setCalendarPopup(true);
    setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    setMinimumDate(QDate(1, 1, 1));
    setMaximumDate(QDate(9999, 12, 31));
    SetValue(DateTime::Today());
}

void DateEdit::SetValue(const DateTime& date) {
    m_date = date.IsValid() ? date : DateTime::Today();
    setDate(QDate(m_date.Year(), m_date.Month(), m_date.Day()));
}

DateTime DateEdit::Value() const {
    const QDate day = date();
    return DateTime::FromDay(day.year(), day.month(), day.day(), m_date.Hour(), m_date.Minute(), m_date.Second());
}
