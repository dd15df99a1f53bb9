#include "app/linkline.h"

#include "app/elidedlabel.h"
#include "app/linelayout.h"

#include <QToolButton>

#include <initializer_list>

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
    : QWidget(parent), m_servo(new ElidedLabel(this)), m_fault(new ElidedLabel(this)), m_event(new ElidedLabel(this)),
      m_offer(new QToolButton(this)), m_quality(new ElidedLabel(this)), m_unkept(new ElidedLabel(this)),
      m_recording(new QLabel(this)), m_motor(new QLabel(this)), m_stop(new QToolButton(this)),
      m_help(new QToolButton(this))
{
    setObjectName(QStringLiteral("linkLine"));
    m_servo->setObjectName(QStringLiteral("linkServoLabel"));
    m_fault->setObjectName(QStringLiteral("linkFaultLabel"));
    m_event->setObjectName(QStringLiteral("linkEventLabel"));
    m_offer->setObjectName(QStringLiteral("linkOfferButton"));
    m_quality->setObjectName(QStringLiteral("linkQualityLabel"));
    m_unkept->setObjectName(QStringLiteral("linkUnkeptLabel"));
    m_recording->setObjectName(QStringLiteral("linkRecordingLabel"));
    m_motor->setObjectName(QStringLiteral("linkMotorLabel"));
    m_stop->setObjectName(QStringLiteral("stopMotorButton"));
    m_fault->setStyleSheet(QStringLiteral("color: #a00000; font-weight: bold;"));
    auto *layout = new LineLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * fontMetrics().averageCharWidth());
    layout->setSizeConstraint(QLayout::SetMinimumSize); // the stop button is never squeezed
    for (QLabel *label :
         std::initializer_list<QLabel *>{m_servo, m_fault, m_event, m_quality, m_unkept, m_recording, m_motor}) {
        label->setTextFormat(Qt::PlainText);
        label->hide();
        layout->addWidget(label);
    }
    layout->insertWidget(layout->indexOf(m_event) + 1, m_offer);
    m_offer->setAccessibleName(tr("Offer")); // while there is none
    m_offer->setFocusPolicy(Qt::TabFocus);
    m_offer->setStyleSheet(
        QStringLiteral("QToolButton { border: 1px solid palette(mid); border-radius: 3px; padding: 0 "
                       "6px; } QToolButton:focus, QToolButton:hover { border-color: palette(text); }"));
    m_offer->hide();
    connect(m_offer, &QToolButton::clicked, this, &LinkLine::offerAccepted);
    m_stop->setText(tr("Stop motor (F8)"));
    m_stop->setToolTip(tr("Switches the motor off at once. That frees the shaft: what it carries may fall."));
    m_stop->setFocusPolicy(Qt::TabFocus);
    m_stop->setStyleSheet(QStringLiteral("QToolButton { background: #a00000; color: white; font-weight: bold; "
                                         "border: 2px solid #a00000; border-radius: 3px; padding: 1px 8px; } "
                                         "QToolButton:focus, QToolButton:hover { border-color: black; } "
                                         "QToolButton:pressed { background: #600000; }"));
    layout->addWidget(m_stop);

    m_help->setObjectName(QStringLiteral("guideButton"));
    m_help->setText(QStringLiteral("?"));
    m_help->setAccessibleName(tr("User guide"));
    m_help->setToolTip(tr("Opens the user guide at what it says of the part of the window in use (F1)."));
    m_help->setAutoRaise(true);
    m_help->setFocusPolicy(Qt::TabFocus); // a click leaves the focus where it is: the guide opens at that
    connect(m_help, &QToolButton::clicked, this, &LinkLine::helpRequested);
    layout->addWidget(m_help);
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
    m_offer->hide();
}

void LinkLine::offer(const QString &text, const QString &tip, const QString &actionText)
{
    tell(text, tip);
    m_offer->setText(actionText);
    m_offer->setAccessibleName(actionText + QLatin1String(": ") + text);
    m_offer->setToolTip(tip);
    m_offer->show();
}

void LinkLine::showUnkept(const QString &text, const QString &tip)
{
    fill(*m_unkept, text, tip);
}

void LinkLine::showRecording(const QString &text, const QString &tip)
{
    fill(*m_recording, text.isEmpty() ? QString() : QStringLiteral("\u25CF ") + text, tip);
}

void LinkLine::showMotor(const QString &text)
{
    fill(*m_motor, text, {});
}

QAbstractButton &LinkLine::stopButton() const
{
    return *m_stop;
}

void LinkLine::showQuality(const QString &text, const QString &tip)
{
    // The figures are of use while the link is good, too; then they stand at the servo.
    m_servo->setToolTip(tip.isEmpty() ? m_servo->text() : tip);
    fill(*m_quality, text, tip);
}
