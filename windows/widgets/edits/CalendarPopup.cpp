#include "windows/widgets/edits/CalendarPopup.h"

#include "core/base/TypedText.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QScreen>
#include <QVBoxLayout>

CalendarPopup::CalendarPopup(QWidget& field, const QDate& shown)
    : QFrame(&field, Qt::Popup), m_calendar(new QCalendarWidget) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(StyledPanel);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->addWidget(m_calendar);
    m_calendar->setObjectName(QStringLiteral("calendar"));
    m_calendar->setAccessibleName(QStringLiteral("Kalendář"));
    m_calendar->setLocale(QLocale(QLocale::Czech, QLocale::CzechRepublic));
    m_calendar->setFirstDayOfWeek(Qt::Monday);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setDateRange(QDate(FirstYear, 1, 1), QDate(LastYear, 12, 31));
    m_calendar->setSelectedDate(shown);
    connect(m_calendar, &QCalendarWidget::clicked, this, &CalendarPopup::Choose);
    connect(m_calendar, &QCalendarWidget::activated, this, &CalendarPopup::Choose);
    PutUnder(field);
    show();
    m_calendar->setFocus();
}

void CalendarPopup::PutUnder(const QWidget& field) {
    adjustSize();
    const QRect screen = field.screen()->availableGeometry();
    QPoint place = field.mapToGlobal(QPoint(0, field.height()));
    if (place.y() + height() > screen.bottom())
        place.setY(field.mapToGlobal(QPoint()).y() - height());
    place.setX(qBound(screen.left(), place.x(), qMax(screen.left(), screen.right() - width())));
    move(place);
}

void CalendarPopup::Choose(const QDate& day) {
    emit chosen(day);
    close();
}
