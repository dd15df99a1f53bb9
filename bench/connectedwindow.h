#pragma once

#include "app/mainwindow.h"
#include "bench/drivenservo.h"

#include <memory>

/** The program's window, connected to a driven servo, that polls when it is told to. */
class ConnectedWindow
{
public:
    ConnectedWindow();
    ~ConnectedWindow();
    Q_DISABLE_COPY(ConnectedWindow)

    template <class Widget = QWidget>
    Widget &child(const char *objectName) const
    {
        auto *found = m_window->findChild<Widget *>(QLatin1String(objectName));
        if (!found)
            qFatal("no %s", objectName);
        return *found;
    }

    /** Polls @p table and shows it. @return microseconds of this thread from the tick until all is painted. */
    double poll(const QByteArray &table);
    /** Presses the key that stops the motor. @return microseconds from there until the servo has been told. */
    double stopMotor();

private:
    class TickGate;

    DrivenServo m_servo;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<TickGate> m_gate;
};

/** Handles everything that has been posted, repaints included. */
void paintAll();
