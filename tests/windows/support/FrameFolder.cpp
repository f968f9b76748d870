#include "tests/windows/support/FrameFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include <algorithm>

namespace {

CRegisterView* CreateRecorded(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent) {
    return new CRecordedView(store, broadcaster, parent);
}

constexpr RegisterEntry RecordedRegisters[] = {
    {Command::ID_SHOW_COVERS, CreateRecorded},
    {Command::ID_SHOW_COMPOSITES, CreateRecorded},
    {Command::ID_SHOW_PRODUCTS, CreateRecorded},
    {Command::ID_SHOW_ISSUES, CreateRecorded},
};

} // namespace

CRecordedView::CRecordedView(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : CRegisterView(store, broadcaster, parent) {
    setFocusPolicy(Qt::StrongFocus);
}

bool CRecordedView::Handles(Command command) const {
    using enum Command;
    // Alt+Ins is left out, so that a command which the register does not handle is there too.
    constexpr Command Handled[] = {ID_RECORD_ADD,  ID_RECORD_EDIT,    ID_RECORD_DELETE,  ID_RECORD_FILTER,
                                   ID_RECORD_FIND, ID_RECORD_REPLACE, ID_RECORD_REFRESH, ID_DETAIL_ADD,
                                   ID_DETAIL_EDIT, ID_DETAIL_DELETE,  ID_SUBDETAIL_EDIT, ID_SUBDETAIL_DELETE};
    return std::find(std::begin(Handled), std::end(Handled), command) != std::end(Handled);
}

FreshSettings::FreshSettings() {
    QCoreApplication::setOrganizationName(QStringLiteral("Pelrond"));
    QCoreApplication::setApplicationName(QStringLiteral("Kuvel"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

void FrameFolder::Open() {
    if (frame != nullptr)
        frame->close();
    frame.reset();
    frame = std::make_unique<CMainFrame>(document, RecordedRegisters);
    frame->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
}
