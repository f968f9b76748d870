#pragma once

#include "core/import/OverwriteDoor.h"

#include <QDialog>

#include <memory>

namespace Ui {
class AskOverwriteDlg;
}

/// Asks whether a record of an earlier import is to be overwritten: yes, no, or either for all that follow. Shows what
/// it holds beside what it would, and can stop the import.
class CAskOverwriteDlg : public QDialog {
    Q_OBJECT

public:
    CAskOverwriteDlg(const OverwriteQuestion& question, QWidget* parent);
    ~CAskOverwriteDlg() override;

    IOverwriteDoor::Answer Ask();

private:
    std::unique_ptr<Ui::AskOverwriteDlg> m_ui;
    IOverwriteDoor::Answer m_answer = IOverwriteDoor::Answer::No;
};
