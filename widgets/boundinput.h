#pragma once

#include "device/fieldhelper.h"
#include "widgets/boundfield.h"
#include "widgets/ground.h"
#include "widgets/mark.h"

#include <QWheelEvent>

/**
 * A Qt control of type @p QtBase that is a bound field and shows its value as a @p Shown.
 *
 * The concrete class declares the signal setIsDirty(bool) and the slots, which a template cannot, and
 * forwards on_deviceLoaded() to takeDevice() and its value slot to trackEdit().
 */
template <class QtBase, class Shown>
class BoundInput : public QtBase, public BoundField
{
public:
    // Some Qt controls have functions of these names that mean something else.
    using BoundField::setEditable;
    using BoundField::setValue;

    QString objectName() const override { return QObject::objectName(); }

    void setObjectName(const QString &name) override
    {
        setFieldId(FieldHelper::fieldIdOf(name));
        QObject::setObjectName(name);
    }

protected:
    explicit BoundInput(QWidget *parent) : QtBase(parent), BoundField(static_cast<QWidget &>(*this)), m_stored()
    {
        // A turn of the wheel that scrolls the view must not take the focus either.
        if (this->focusPolicy() == Qt::WheelFocus)
            this->setFocusPolicy(Qt::StrongFocus);
    }

    virtual Shown shown() const = 0;
    virtual void display(const Shown &value) = 0;
    virtual Shown fromRaw(int raw) const = 0;
    virtual Shown placeholder() const { return Shown(); }

    const Shown &stored() const { return m_stored; }

    void showRaw(int raw) override { display(fromRaw(raw)); }
    void storeShown() override { m_stored = shown(); }
    void storePlaceholder() override { m_stored = placeholder(); }
    bool showsStored() const override { return shown() == m_stored; }
    bool isEdited() const override { return !showsStored(); }

    void showStored() override
    {
        if (!showsStored())
            display(m_stored);
    }

    bool event(QEvent *event) override
    {
        const bool isHandled = QtBase::event(event);
        ground::declareOwn(*this, *event);
        return isHandled;
    }

    void paintEvent(QPaintEvent *event) override
    {
        ground::paint(*this, *event);
        QtBase::paintEvent(event);
        if (this->isMarked())
            mark::paint(*this);
    }

    void wheelEvent(QWheelEvent *event) override
    {
        if (this->hasFocus())
            QtBase::wheelEvent(event);
        else
            event->ignore();
    }

private:
    Shown m_stored;
};
