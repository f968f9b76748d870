#pragma once

class CMainFrame;
class CProgressDoor;

/// Gives the main window the commands that belong to no register. Both must outlive the window's commands.
void InstallFrameCommands(CMainFrame& frame, CProgressDoor& progress);
