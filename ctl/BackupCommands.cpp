#include "core/base/AppDir.h"
#include "core/base/Profile.h"
#include "core/store/DataStore.h"
#include "core/store/backup/Backup.h"
#include "ctl/Commands.h"
#include "ctl/Failure.h"
#include "ctl/Terminal.h"

#include <QFile>
#include <QFileInfo>

#include <memory>

namespace {

/// Answers Yes to the question whether to overwrite, which the option has answered already.
class OverwriteAgreed : public IMessageDoor {
public:
    Message::Answer Show(const Message& message) override {
        return message.buttons == Message::Buttons::YesNo ? Message::Answer::Yes : m_use.Before()->Show(message);
    }

private:
    DoorUse<IMessageDoor*> m_use{MessageDoor(), this};
};

QString Absolute(const std::string& file) {
    return QFileInfo(QFile::decodeName(file.c_str())).absoluteFilePath();
}

BackupActions Actions() {
    return {[] {}, EndProcess};
}

bool Backup(const std::string& file, bool overwrite) {
    if (!OpenStore())
        return false;
    const QString target = file.empty() ? DefaultBackupPath() : Absolute(file);
    if (!overwrite && QFileInfo(target).isFile())
        throw Failure(QStringLiteral("%1 is there already; --overwrite replaces it").arg(target));
    const OverwriteAgreed agreed;
    if (!BackupDatabase(g_dataStore, target, Actions()))
        return false;
    if (const std::error_code error =
            CProfile(SettingsPath()).Write(QStringLiteral("Zalohovani"), {{QStringLiteral("Posledni zaloha"), target}}))
        throw Failure(QStringLiteral("the backup was made, but %1 could not be written").arg(SettingsPath()), error);
    PrintLine(target);
    return true;
}

bool Restore(const std::string& file) {
    const QString source = Absolute(file);
    bool putBack = false;
    if (!RestoreDatabase(g_dataStore, source, Actions(), &putBack))
        return false;
    if (putBack)
        throw Failure(QStringLiteral("%1 is no database of this program; the old data were put back").arg(source));
    PrintLine(source);
    return true;
}

} // namespace

void AddBackup(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("backup", "Copies the database to a file");
    const auto file = std::make_shared<std::string>();
    const auto overwrite = std::make_shared<bool>(false);
    command->add_option("FILE", *file, "The backup; ZalohaYYYYMMDD.mdb in the folder Zalohy unless given");
    command->add_flag("--overwrite", *overwrite, "Replaces a file that is there already");
    command->callback([=, &action] { action = [=](CTerminal&) { return Backup(*file, *overwrite); }; });
}

void AddRestore(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("restore", "Puts a backup in the database's place");
    const auto file = std::make_shared<std::string>();
    command->add_option("FILE", *file, "The backup")->required();
    command->callback([=, &action] { action = [=](CTerminal&) { return Restore(*file); }; });
}
