#pragma once

#include "core/base/DateTime.h"
#include "windows/widgets/TypedEdit.h"

class QDate;

/// A date: typed in any form that `ReadDate` reads, stepped by Up and Down (a day) and Page Up and Page Down (a month),
/// or picked from the calendar that Alt+Down, F4 and the button open. The time of day that came with the date stays
/// when another day is chosen.
class DateEdit : public TypedEdit {
    Q_OBJECT

public:
    explicit DateEdit(QWidget* parent = nullptr);

    /// A date that is not valid shows today.
    void SetValue(const DateTime& date);
    /// What was set, while the text cannot be read.
    DateTime Value() const;
    QString Complaint() const override;
    /// A day is never cut off.
    QSize minimumSizeHint() const override;

protected:
    QString TidyText() const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Step(int days, int months);
    void OpenCalendar();
    void Choose(const QDate& day);

    DateTime m_date;
};
