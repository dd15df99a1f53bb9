#pragma once

#include "device/iunitfield.h"
#include "widgets/boundlabel.h"

/**
 * The caption of a field together with its unit: the unit chosen when the caption is set, and from each
 * connection on the one chosen by then, as the values are shown in.
 */
class ZelvarUnitLabel : public BoundLabel<IUnitField>
{
    Q_OBJECT

public:
    explicit ZelvarUnitLabel(QWidget *parent = nullptr);

    /** Takes @p name and the field id that goes with it. @throws std::out_of_range when no field has it. */
    void setObjectName(const QString &name);
    /** The first caption set is kept; the text shown is made of it. */
    void setText(const QString &caption);
    /** As it was set, without the unit. */
    const QString &caption() const { return m_caption; }
    qint32 fieldId() const override;
    void connected() override;
    void disconnected() override;

private:
    void showCaption();

    QString m_caption;
    qint32 m_fieldId = -1;
};
