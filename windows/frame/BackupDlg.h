#pragma once

#include "core/store/backup/Backup.h"

#include <QDialog>

#include <memory>

class CDataStore;
namespace Ui {
class BackupDlg;
}

/// Asks for the file of a backup, or of the backup to restore, and makes or restores it. Stays open after a failure.
class CBackupDlg : public QDialog {
    Q_OBJECT

public:
    enum class Mode { Backup, Restore };

    CBackupDlg(Mode mode, CDataStore& store, BackupActions actions, QWidget* parent);
    ~CBackupDlg() override;

private:
    void Browse();
    void Act();

    std::unique_ptr<Ui::BackupDlg> m_ui;
    Mode m_mode;
    CDataStore& m_store;
    BackupActions m_actions;
};
