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

    bool editMode() const override;
    void setEditMode(bool editMode);
    bool withholdsValues() const override;

public Q_SLOTS:
    void connected() override;
    void disconnected() override;

private:
    template <class Call>
    void callFields(Call call);

    bool m_editMode = false;
};
