#pragma once

#include "device/iconnectinfo.h"

#include <QToolButton>

#include <functional>

/** A button of an edit/save group. As edit/save button it counts the group's edited fields. */
class ZelvarGroupToolButton : public QToolButton, public IConnectInfo
{
    Q_OBJECT

public:
    enum Role : qint32 { EditSave = 0, Cancel = 1 };

    explicit ZelvarGroupToolButton(QWidget *parent = nullptr);

    Role role() const;
    void setRole(Role role);

    /** What saves the group; empty for a group that is never saved. */
    const std::function<void()> &saveAction() const;
    void setSaveAction(std::function<void()> saveAction);

    /** Takes the button out of use, whatever else happens to it, until called with false. */
    void setInhibited(bool inhibited);
    /** Enables the button as far as device, inhibition and, while editing, the count of edited fields allow. */
    void refreshEnabled();

public Q_SLOTS:
    void connected() override;
    void disconnected() override;
    /** One field more (@p dirty) or less is edited; without an edited field there is nothing to apply. */
    void incrementReferenceCount(bool dirty);
    void clearReferenceCount();
    void on_deviceLoaded();

private:
    void finishPress();

    Role m_role = EditSave;
    qint32 m_referenceCount = 0;
    std::function<void()> m_saveAction;
    bool m_deviceLoaded = false;
    bool m_inhibited = false;
    bool m_unchecksAtRelease = false;
};
