#pragma once

/**
 * Has screen readers take the buttons of the groups for what they are. Qt takes what can be checked for a check box,
 * but "Edit" and "Apply" are pressed. Does nothing when called again.
 */
void installGroupButtonAccess();
