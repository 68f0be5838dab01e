#pragma once
// What a screen reader knows of a button.

/// From the first call on, every XPButton has the role, the name and the press action of a button.
void describeButtonsToScreenReaders();
