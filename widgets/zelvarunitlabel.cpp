#include "widgets/zelvarunitlabel.h"

#include "device/fieldhelper.h"
#include "device/unitshelper.h"
#include "widgets/followeddevice.h"

ZelvarUnitLabel::ZelvarUnitLabel(QWidget *parent) : BoundLabel(parent) {}

void ZelvarUnitLabel::setObjectName(const QString &name)
{
    m_fieldId = FieldHelper::fieldIdOf(name);
    QLabel::setObjectName(name);
}

void ZelvarUnitLabel::setText(const QString &caption)
{
    if (m_caption.isNull())
        m_caption = caption;
    showCaption();
}

qint32 ZelvarUnitLabel::fieldId() const
{
    return m_fieldId;
}

void ZelvarUnitLabel::connected()
{
    BoundLabel::connected();
    showCaption();
}

void ZelvarUnitLabel::disconnected()
{
    BoundLabel::disconnected();
    update();
}

void ZelvarUnitLabel::showCaption()
{
    // The servo's id is a plain number.
    FittedLabel::setText(model::FieldKind(m_fieldId) == model::FieldKind::IdCaption
                             ? m_caption + QLatin1Char(':')
                             : QStringLiteral("%1 (%2):").arg(m_caption, currentUnits()->unitName(m_fieldId)));
}
