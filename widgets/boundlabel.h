#pragma once

#include "device/iconnectinfo.h"
#include "widgets/fittedlabel.h"

/** A caption that greys out with its control's lock, but only while the link is up. @p Field is its interface. */
template <class Field>
class BoundLabel : public FittedLabel, public Field, public IConnectInfo
{
public:
    QString objectName() const override { return QObject::objectName(); }

    void setLocked(bool lock) override
    {
        if (m_connected)
            setDisabled(lock);
    }

    void connected() override { m_connected = true; }

    void disconnected() override
    {
        m_connected = false;
        setEnabled(true);
    }

protected:
    explicit BoundLabel(QWidget *parent) : FittedLabel(parent) {}

private:
    bool m_connected = false;
};
