#pragma once

#include <QDialog>

#include <memory>

struct PropagationOptions;
namespace Ui {
class OptionsDlg;
}

/// Which copies follow a changed cover or packaging definition.
class COptionsDlg : public QDialog {
    Q_OBJECT

public:
    COptionsDlg(PropagationOptions& options, QWidget* parent);
    ~COptionsDlg() override;
    void accept() override;

private:
    std::unique_ptr<Ui::OptionsDlg> m_ui;
    PropagationOptions& m_options;
};
