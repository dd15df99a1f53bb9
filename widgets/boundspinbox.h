#pragma once

#include "widgets/boundinput.h"
#include "widgets/fieldtooltip.h"
#include "widgets/typednumber.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>
#include <QValidator>

#include <cmath>
#include <type_traits>

/**
 * What the two spin boxes share. Without a value to show the text is cleared; the number behind it stays.
 *
 * The value follows the keyboard, so that a valid number counts as an edit while it is typed. Text that is no number,
 * or none within the range, is marked and no edit: it is never applied. When typing ends, a number beyond the range
 * becomes the nearest one within it, for the user to see, while text that is no number stays.
 */
template <class QtBase, class Number>
class BoundSpinBox : public BoundInput<QtBase, Number>
{
public:
    // Qt steps from the number behind the text to another one with more decimals than are shown, and does not tell when
    // the two hardly differ. What is shown is what counts.
    void stepBy(int steps) override
    {
        QtBase::stepBy(steps);
        QtBase::setValue(QtBase::value());
        this->trackEdit();
    }

    Number valueFromText(const QString &text) const override
    {
        return static_cast<Number>(nearestWithinRange(typedNumber(text).value_or(QtBase::value())));
    }

protected:
    explicit BoundSpinBox(QWidget *parent) : BoundInput<QtBase, Number>(parent)
    {
        QObject::connect(this->lineEdit(), &QLineEdit::textEdited, this, [this] {
            this->trackEdit();
            this->update(); // the mark
        });
    }

    Number shown() const override { return QtBase::value(); }
    void display(const Number &number) override { QtBase::setValue(number); }
    QString storedText() const override { return this->textFromValue(this->stored()); }
    bool isEdited() const override { return this->hasAcceptableInput() && !this->showsStored(); }

    BoundField::Range shownRange() const override { return {double(QtBase::minimum()), double(QtBase::maximum())}; }

    void finishTyping() override
    {
        QtBase::setValue(this->hasAcceptableInput() ? QtBase::value() : this->stored());
        refreshBlank();
    }

    // Nothing is refused while it is typed: a key that does nothing would leave another number than was meant.
    QValidator::State validate(QString &text, int &position) const override
    {
        if constexpr (std::is_floating_point_v<Number>)
            typednumber::adoptDecimalSign(text, position, this->locale());
        const auto number = typedNumber(text);
        return number && isWithinRange(*number) ? QValidator::Acceptable : QValidator::Intermediate;
    }

    void fixup(QString &text) const override
    {
        if (const auto number = typedNumber(text))
            text = this->textFromValue(static_cast<Number>(nearestWithinRange(*number)));
        else if (text.trimmed().isEmpty())
            text = this->textFromValue(this->stored());
    }

    void refreshBlank() override
    {
        if (!this->isBlank()) {
            if (this->text().isEmpty())
                QtBase::setValue(QtBase::value());
        } else if (!this->text().isEmpty()) {
            this->clear();
        }
    }

    bool isMarked() const override
    {
        return this->isEnabled() && !this->isBlank() && (!this->hasAcceptableInput() || this->isObjectedTo());
    }

    // Qt puts the text back at occasions of its own, among them each time the control is shown.
    void paintEvent(QPaintEvent *event) override
    {
        BoundInput<QtBase, Number>::paintEvent(event);
        if (this->isBlank())
            refreshBlank();
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
            QtBase::keyPressEvent(event);
            return;
        }
        endTyping([&] { QtBase::keyPressEvent(event); });
    }

    void focusOutEvent(QFocusEvent *event) override
    {
        endTyping([&] { QtBase::focusOutEvent(event); });
    }

    void hideEvent(QHideEvent *event) override
    {
        endTyping([&] { QtBase::hideEvent(event); });
    }

    void showEvent(QShowEvent *event) override
    {
        endTyping([&] { QtBase::showEvent(event); });
    }

private:
    /** The number that @p text stands for, as far as the field has decimals for it. */
    std::optional<double> typedNumber(const QString &text) const
    {
        const auto number = typednumber::parsed(text, this->locale());
        if (!number)
            return std::nullopt;
        if constexpr (std::is_floating_point_v<Number>)
            return QString::number(*number, 'f', QtBase::decimals()).toDouble();
        else
            return *number == std::floor(*number) ? number : std::nullopt;
    }

    double nearestWithinRange(double number) const
    {
        return qBound(double(QtBase::minimum()), number, double(QtBase::maximum()));
    }

    bool isWithinRange(double number) const { return number == nearestWithinRange(number); }

    /** Lets Qt do its @p handling of what ends typing, in which it would replace what is no number by the last one. */
    template <class Handling>
    void endTyping(Handling handling)
    {
        const QString typed = this->text();
        const bool isTyped = this->isEnabled() && !this->isBlank() && !typed.trimmed().isEmpty();
        const auto number = typedNumber(typed);
        handling();
        if (!isTyped || (number && isWithinRange(*number)))
            return;
        if (!number) {
            this->lineEdit()->setText(typed);
            this->trackEdit();
        }
        tell(number ? FieldToolTip::correctedText(typed) : FieldToolTip::noNumberText(typed));
    }

    void tell(const QString &what)
    {
        const QString text = what + QLatin1Char('\n') + this->rangeText();
        if (this->isVisible())
            QToolTip::showText(this->mapToGlobal(QPoint(0, this->height())), text, this);
    }
};
