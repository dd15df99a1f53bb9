#pragma once

#include "device/iconnectinfo.h"
#include "device/istatusindicator.h"

#include <QCheckBox>

/** One status bit as a coloured indicator; red only while it is on and the link is up. */
class ZelvarStatusCheckBox : public QCheckBox, public IConnectInfo, public IStatusIndicator
{
    Q_OBJECT

public:
    explicit ZelvarStatusCheckBox(QWidget *parent = nullptr);

    /** Sets the caption and the look that goes with its width. */
    void setText(const QString &text);
    void setStatus(bool on) override;
    void connected() override;
    void disconnected() override;

private:
    void refreshLook();

    bool m_connected = false;
};
