#pragma once

#include "core/rules/FindRequest.h"

#include <QWidget>

#include <string>
#include <vector>

/// What the find-and-replace window works on: the register that opened it.
class CFindOwner : public QWidget {
public:
    using QWidget::QWidget;

    /// What is searched, as its title says.
    virtual QString FindName() const { return {}; }
    /// The fields that may be searched here.
    virtual std::vector<std::string> FindFields() const { return {}; }
    /// One request of the window, carried out on the master list before it returns. Errors are shown.
    virtual void FindReplace(const FindRequest&) {}
};
