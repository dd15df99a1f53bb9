#pragma once

#include "device/iconnectinfo.h"
#include "device/ieditgroup.h"

#include <QGroupBox>

/** A group of fields that are shown, edited and saved together; tells its fields of the link. */
class ZelvarParametersGroupBox : public QGroupBox, public IConnectInfo, public IEditGroup
{
    Q_OBJECT

public:
    explicit ZelvarParametersGroupBox(QWidget *parent = nullptr);

    bool editMode() const;
    void setEditMode(bool editMode);
    /**
     * Edit mode, except that the first values of a connection are let through: a field that has never shown
     * the servo's value stays out of use, so there is no edit that they could overwrite.
     */
    bool isEditing() const override;

public Q_SLOTS:
    void connected() override;
    void disconnected() override;

private:
    template <class Call>
    void callFields(Call call);

    bool m_editMode = false;
};
