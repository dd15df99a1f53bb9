#include "widgets/zelvarparametersgroupbox.h"

#include "device/igroupinputcomponent.h"
#include "device/istatusindicator.h"
#include "device/izelvarfield.h"

#include <algorithm>

ZelvarParametersGroupBox::ZelvarParametersGroupBox(QWidget *parent) : QGroupBox(parent) {}

bool ZelvarParametersGroupBox::editMode() const
{
    return m_editMode;
}

void ZelvarParametersGroupBox::setEditMode(bool editMode)
{
    m_editMode = editMode;
}

bool ZelvarParametersGroupBox::withholdsValues() const
{
    const auto awaitsValue = [](const QObject *child) {
        const auto *input = dynamic_cast<const IGroupInputComponent *>(child);
        return input && input->awaitsValue();
    };
    return m_editMode && std::none_of(children().begin(), children().end(), awaitsValue);
}

void ZelvarParametersGroupBox::connected()
{
    callFields([](IConnectInfo &field) { field.connected(); });
}

void ZelvarParametersGroupBox::disconnected()
{
    callFields([](IConnectInfo &field) { field.disconnected(); });
}

// Fields and status boxes, not the tool buttons, which are told of the link on their own.
template <class Call>
void ZelvarParametersGroupBox::callFields(Call call)
{
    for (QObject *child : children()) {
        auto *info = dynamic_cast<IConnectInfo *>(child);
        if (info && (dynamic_cast<IZelvarField *>(child) || dynamic_cast<IStatusIndicator *>(child)))
            call(*info);
    }
    update();
}
