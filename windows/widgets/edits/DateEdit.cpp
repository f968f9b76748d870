#include "windows/widgets/edits/DateEdit.h"

#include "core/base/TypedText.h"
#include "windows/widgets/IconButton.h"
#include "windows/widgets/edits/CalendarPopup.h"

#include <QAction>
#include <QDate>
#include <QKeyEvent>

namespace {

QDate Day(const DateTime& date) {
    return {date.Year(), date.Month(), date.Day()};
}

} // namespace

DateEdit::DateEdit(QWidget* parent) : TypedEdit(parent) {
    QAction* calendar = addAction(NamedIcon("calendar"), TrailingPosition);
    calendar->setText(QStringLiteral("Kalendář"));
    calendar->setToolTip(QStringLiteral("Kalendář (F4)"));
    connect(calendar, &QAction::triggered, this, &DateEdit::OpenCalendar);
    SetValue(DateTime::Today());
}

void DateEdit::SetValue(const DateTime& date) {
    m_date = date.IsValid() ? date : DateTime::Today();
    setText(FormatDate(m_date));
}

DateTime DateEdit::Value() const {
    const Typed<DateTime> typed = ReadDate(text());
    if (!typed.IsRead())
        return m_date;
    const DateTime& day = typed.value;
    return DateTime::FromDay(day.Year(), day.Month(), day.Day(), m_date.Hour(), m_date.Minute(), m_date.Second());
}

QString DateEdit::Complaint() const {
    return ReadDate(text()).refusal;
}

QSize DateEdit::minimumSizeHint() const {
    QSize size = TypedEdit::minimumSizeHint();
    size.rwidth() += fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000"));
    return size;
}

QString DateEdit::TidyText() const {
    return FormatDate(Value());
}

void DateEdit::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool plain = modifiers == Qt::NoModifier;
    switch (event->key()) {
    case Qt::Key_F4:
        return plain ? OpenCalendar() : TypedEdit::keyPressEvent(event);
    case Qt::Key_Down:
        return plain ? Step(-1, 0) : modifiers == Qt::AltModifier ? OpenCalendar() : TypedEdit::keyPressEvent(event);
    case Qt::Key_Up:
        return plain ? Step(1, 0) : TypedEdit::keyPressEvent(event);
    case Qt::Key_PageDown:
        return plain ? Step(0, -1) : TypedEdit::keyPressEvent(event);
    case Qt::Key_PageUp:
        return plain ? Step(0, 1) : TypedEdit::keyPressEvent(event);
    default:
        TypedEdit::keyPressEvent(event);
    }
}

/// Only from a date that can be read: what is half typed is not thrown away for a step.
void DateEdit::Step(int days, int months) {
    if (Complaint().isEmpty())
        Choose(Day(Value()).addMonths(months).addDays(days));
}

void DateEdit::OpenCalendar() {
    auto* calendar = new CalendarPopup(*this, Day(Value()));
    connect(calendar, &CalendarPopup::chosen, this, &DateEdit::Choose);
}

void DateEdit::Choose(const QDate& day) {
    if (day.year() < FirstYear || day.year() > LastYear)
        return;
    setText(FormatDate(DateTime::FromDay(day.year(), day.month(), day.day())));
    selectAll();
}
