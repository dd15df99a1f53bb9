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

    /** Takes the button out of use for the reason @p why, whatever else happens to it, until that is empty. */
    void setInhibition(const QString &why);
    /** Enables the button as far as device, inhibition and, while editing, the count of edited fields allow. */
    void refreshEnabled();
    /** Sets what the tip says; an edit/save button that is disabled adds why. */
    void setToolTip(const QString &tip);

public Q_SLOTS:
    void connected() override;
    void disconnected() override;
    /** One field more (@p dirty) or less is edited; without an edited field there is nothing to apply. */
    void incrementReferenceCount(bool dirty);
    void clearReferenceCount();
    void on_deviceLoaded();

protected:
    bool event(QEvent *event) override;

private:
    enum class Link { Down, Unanswered, Unsupported, Up };

    void finishPress();
    void enable(bool enabled);
    void refreshToolTip();
    QString whyDisabled() const;

    Role m_role = EditSave;
    qint32 m_referenceCount = 0;
    std::function<void()> m_saveAction;
    Link m_link = Link::Down;
    QString m_inhibition;
    QString m_toolTip;
    bool m_unchecksAtRelease = false;
};
