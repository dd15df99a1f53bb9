#include "app/linkline.h"

#include "app/elidedlabel.h"

#include <QHBoxLayout>

namespace {

void fill(QLabel &label, const QString &text, const QString &tip)
{
    label.setText(text);
    label.setToolTip(tip.isEmpty() ? text : tip);
    label.setAccessibleDescription(tip);
    label.setVisible(!text.isEmpty());
}

} // namespace

LinkLine::LinkLine(QWidget *parent)
    : QWidget(parent), m_servo(new QLabel(this)), m_fault(new ElidedLabel(this)), m_event(new ElidedLabel(this)),
      m_quality(new QLabel(this))
{
    setObjectName(QStringLiteral("linkLine"));
    m_servo->setObjectName(QStringLiteral("linkServoLabel"));
    m_fault->setObjectName(QStringLiteral("linkFaultLabel"));
    m_event->setObjectName(QStringLiteral("linkEventLabel"));
    m_quality->setObjectName(QStringLiteral("linkQualityLabel"));
    m_fault->setStyleSheet(QStringLiteral("color: #a00000; font-weight: bold;"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * fontMetrics().averageCharWidth());
    for (QLabel *label : {m_servo, static_cast<QLabel *>(m_fault), static_cast<QLabel *>(m_event), m_quality}) {
        label->setTextFormat(Qt::PlainText);
        label->hide();
        layout->addWidget(label);
    }
}

void LinkLine::showServo(const QString &text)
{
    fill(*m_servo, text, {});
}

void LinkLine::showFault(const QString &text, const QString &tip)
{
    fill(*m_fault, text.isEmpty() ? QString() : QStringLiteral("\u26A0 ") + text, tip);
}

void LinkLine::tell(const QString &text, const QString &tip)
{
    fill(*m_event, text, tip);
}

void LinkLine::showQuality(const QString &text, const QString &tip)
{
    // The figures are of use while the link is good, too; then they stand at the servo.
    m_servo->setToolTip(tip.isEmpty() ? m_servo->text() : tip);
    fill(*m_quality, text, tip);
}
