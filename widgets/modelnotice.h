#pragma once

#include <QLabel>

/**
 * Says why a view stays empty while a servo is connected whose registers the program does not know; else it is hidden.
 */
class ModelNotice : public QLabel
{
    Q_OBJECT

public:
    /** Follows the link as the process-wide group helper tells of it. */
    ModelNotice(const QString &notice, QWidget *parent);

public Q_SLOTS:
    void connected();
    void on_deviceLoaded();
};
