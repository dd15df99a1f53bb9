#pragma once

class QApplication;

/**
 * Gives the program light colours that go together, whatever the desktop's are: its forms have light grounds, on which
 * a dark desktop's white text could not be read. Text has a contrast of at least 4.5:1 with its ground; disabled text
 * and the handles of scroll bars have at least 3:1. To be called before the first window is made.
 */
void installLightPalette(QApplication &application);
