#pragma once

class CMainFrame;
class IProgressDoor;

/// Sets what the frame's import commands do: wizard, import, summary, and the news to the registers.
void InstallImportCommands(CMainFrame& frame, IProgressDoor& progress);
