#pragma once

#include "widgets/boundinput.h"

#include <QLineEdit>
#include <QValidator>

/**
 * What the two spin boxes share. Without a value to show the text is cleared; the number behind it stays.
 *
 * The value follows the keyboard, so that a valid number counts as an edit while it is typed. Text that is no
 * number yet, or none within the range, is no edit: it is never applied.
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

protected:
    explicit BoundSpinBox(QWidget *parent) : BoundInput<QtBase, Number>(parent)
    {
        QObject::connect(this->lineEdit(), &QLineEdit::textEdited, this, [this] { this->trackEdit(); });
    }

    Number shown() const override { return QtBase::value(); }
    void display(const Number &number) override { QtBase::setValue(number); }
    bool isEdited() const override { return this->hasAcceptableInput() && !this->showsStored(); }

    BoundField::Range shownRange() const override { return {double(QtBase::minimum()), double(QtBase::maximum())}; }

    void finishTyping() override
    {
        QtBase::setValue(this->hasAcceptableInput() ? QtBase::value() : this->stored());
        refreshBlank();
    }

    // Text that is no number gives way to the servo's value, not to the last number that was passed on the way there.
    void fixup(QString &text) const override { text = this->textFromValue(this->stored()); }

    // Group separators are never shown here: read as one, the decimal sign of another locale would make the number ten
    // times as large or more. The text stays as typed, but is no edit.
    QValidator::State validate(QString &text, int &position) const override
    {
        if (text.contains(this->locale().groupSeparator()))
            return QValidator::Intermediate;
        return QtBase::validate(text, position);
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

    // Qt puts the text back at occasions of its own, among them each time the control is shown.
    void paintEvent(QPaintEvent *event) override
    {
        BoundInput<QtBase, Number>::paintEvent(event);
        if (this->isBlank())
            refreshBlank();
    }
};
