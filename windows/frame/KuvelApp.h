#pragma once

#include "windows/frame/SingleInstance.h"

#include <memory>

class CEndSignals;
class CKuvelDoc;
class CMainFrame;
class CProgressDoor;

/// The program from its start to its end, around the event loop.
class CKuvelApp {
public:
    CKuvelApp();
    ~CKuvelApp();
    CKuvelApp(const CKuvelApp&) = delete;
    CKuvelApp& operator=(const CKuvelApp&) = delete;

    /// Takes the steps of the start in their fixed order; each failure has been shown when it answers false, except
    /// that of a second start, which is silent.
    bool InitInstance();
    /// 0 also for a second start.
    int InitResult() const { return m_initResult; }
    /// Saves the options, closes and compacts the database; the window is gone before it.
    void ExitInstance();

    CMainFrame* MainFrame() const { return m_frame.get(); }

private:
    void CreateFrame();

    std::unique_ptr<CSingleInstance> m_instance;
    std::unique_ptr<CKuvelDoc> m_document;
    std::unique_ptr<CProgressDoor> m_progress;
    std::unique_ptr<CMainFrame> m_frame;
    std::unique_ptr<CEndSignals> m_endSignals;
    int m_initResult = 1;
};
