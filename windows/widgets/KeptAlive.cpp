#include "windows/widgets/KeptAlive.h"

#include <QCoreApplication>
#include <QWidget>

void CKeptAlive::Look() {
    if (m_sinceLook.elapsed() < Slice)
        return;
    if (!m_disabled && CDisabledWindow::TakesInput(m_window))
        m_disabled.emplace(m_window);
    QCoreApplication::processEvents();
    m_sinceLook.start();
}
