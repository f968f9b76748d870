#pragma once

/// Makes the toolkit speak Czech whatever the system's language is, and gives the windows their name and icon. Needs
/// the application object.
void SetUpDesktop();
