#pragma once

#include "core/base/DateTime.h"

#include <QDateEdit>

/// A date picker. The time of day that came with the date stays when another day is chosen.
class DateEdit : public QDateEdit {
    Q_OBJECT

public:
    explicit DateEdit(QWidget* parent = nullptr);

    /// A date that is not valid shows today.
    void SetValue(const DateTime& date);
    DateTime Value() const;

protected:
    /// Tab leaves the picker at once; the arrows walk through day, month and year.
    bool focusNextPrevChild(bool next) override { return QWidget::focusNextPrevChild(next); }

private:
    DateTime m_date;
};
