#include "device/fieldhelper.h"

#include "device/fieldbinding.h"
#include "link/lookup.h"
#include "model/families.h"

using model::FieldKind;

namespace {

struct KindRow
{
    const char *objectName;
    FieldKind kind;
};

/** Names whose kind is not that of a field which they show or caption. */
// clang-format off
constexpr KindRow OddKinds[] = {
    // The captions of fields that are shown without conversion carry a unit all the same.
    {"angularVelocityProfileLabel",    FieldKind::AngularVelocity    },
    {"defAngularVelocityProfileLabel", FieldKind::AngularVelocity    },
    {"accelerationProfileLabel",       FieldKind::AngularAcceleration},
    {"defAccelerationProfileLabel",    FieldKind::AngularAcceleration},
    // The torque limit is captioned as the phase current that makes the torque.
    {"quadratureCurrentLimitLabel",    FieldKind::Current            },
    {"maxquadratureCurrentLimitLabel", FieldKind::Current            },
    {"idLabel",                        FieldKind::IdCaption          },
    // Names of earlier forms, whose field has another caption or no register today.
    {"goalPositionLabel",              FieldKind::Angle              },
    {"deadZoneDoubleSpinBox",          FieldKind::Angle              },
};
// clang-format on

std::map<QString, qint32> fieldIdsByName()
{
    std::map<QString, qint32> ids;
    const auto add = [&ids](const char *objectName, FieldKind kind) {
        ids.emplace(QLatin1String(objectName), static_cast<qint32>(kind));
    };
    for (const FieldBinding &binding : fieldBindings())
        add(binding.control, binding.kind());
    for (const model::Field &field : model::ZelvarV1Family.fields) {
        if (field.shown.caption)
            add(field.shown.caption, field.kind);
    }
    for (const KindRow &row : OddKinds)
        add(row.objectName, row.kind);
    return ids;
}

} // namespace

FieldHelper::FieldHelper(const QObjectList &children)
{
    collect(children);
}

qint32 FieldHelper::fieldIdOf(const QString &objectName)
{
    static const std::map<QString, qint32> ids = fieldIdsByName();
    return lookup(ids, objectName);
}

IZelvarField *FieldHelper::field(const QString &name) const
{
    const auto found = m_fields.find(name);
    return found == m_fields.end() ? nullptr : found->second.get();
}

void FieldHelper::collect(const QObjectList &children)
{
    for (QObject *child : children) {
        const Tracked<IZelvarField> field(child);
        if (field.get())
            m_fields.emplace(field.get()->objectName(), field);
        collect(child->children());
    }
}
