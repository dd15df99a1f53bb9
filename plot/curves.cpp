#include "plot/curves.h"

#include "model/rawscale.h"
#include "model/units.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace plot {

namespace {

/**
 * Colours that people tell apart whichever colours they see (Okabe and Ito, "Color Universal Design", 2008), those
 * first that stand out from white paper. What the servo is asked for is dashed, so that a print without colours tells
 * it from what the servo does.
 */
constexpr QRgb Colors[] = {0xff0072b2, 0xffd55e00, 0xff009e73, 0xffcc79a7, 0xff000000, 0xffe69f00, 0xff56b4e9};

/** Strips that show several fields of one kind, the first one on top. */
struct DefaultRow
{
    const char *family;
    const char *key;
};

// clang-format off
constexpr DefaultRow Defaults[] = {
    {"ZelvarV1",      "actual_position"        },
    {"ZelvarV1",      "target_position"        },
    {"ZelvarV1",      "actual_angular_velocity"},
    {"ZelvarV1",      "target_angular_velocity"},
    {"ZelvarV1",      "actual_torque"          },
    {"ZelvarV1",      "target_torque"          },
    {"ZelvarV1",      "actual_phase_current"   },
    {"ZelvarV1",      "actual_voltage"         },
    {"ZelvarV1",      "actual_temperature"     },
    {"DynamixelAx12", "present_position"       },
    {"DynamixelAx12", "goal_position"          },
    {"DynamixelAx12", "present_speed"          },
    {"DynamixelAx12", "moving_speed"           },
    {"DynamixelAx12", "present_load"           },
    {"DynamixelAx12", "present_voltage"        },
    {"DynamixelAx12", "present_temperature"    },
};

/** The strips of quantities, from the top; others follow. */
constexpr model::FieldKind Order[] = {
    model::FieldKind::Angle,   model::FieldKind::AngularVelocity, model::FieldKind::Torque,
    model::FieldKind::Share,   model::FieldKind::Current,         model::FieldKind::Voltage,
    model::FieldKind::Temperature,
};
// clang-format on

/** With the unit, since a fixed range is kept by this key: that of radians is none of degrees. */
QString stripKey(const model::Field &field, int unit)
{
    const bool isShared = model::isQuantity(field.kind) || field.kind == model::FieldKind::Share;
    return isShared ? QStringLiteral("kind%1-%2").arg(qint32(field.kind)).arg(unit) : QString(QLatin1String(field.key));
}

std::ptrdiff_t rank(const model::Field &field)
{
    return std::find(std::begin(Order), std::end(Order), field.kind) - std::begin(Order);
}

QPen penOf(std::size_t index, const model::Field &field)
{
    QPen pen(QColor(Colors[index % std::size(Colors)]), 1);
    pen.setCosmetic(true);
    if (field.isWritable())
        pen.setStyle(Qt::DashLine);
    return pen;
}

} // namespace

QString Curve::name(const model::Family &family) const
{
    return QCoreApplication::translate(family.name, column.field->label);
}

QString Curve::text(double value) const
{
    const bool hasUnit = model::isQuantity(column.field->kind);
    const int decimals =
        hasUnit ? model::unit(column.field->kind, column.unit).decimals : model::stepDecimals(column.field->range);
    return QLocale().toString(value, 'f', decimals);
}

QString Curve::unitText() const
{
    const char *text = model::unit(column.field->kind, column.unit).text;
    return *text ? QCoreApplication::translate("UnitsHelper", text)
                 : QString::fromLatin1(model::asciiUnit(column.field->kind, column.unit));
}

QStringList defaultKeys(const model::Family &family)
{
    QStringList keys;
    for (const DefaultRow &row : Defaults) {
        if (qstrcmp(row.family, family.name) == 0)
            keys.append(QLatin1String(row.key));
    }
    return keys;
}

bool canBeShown(const model::Field &field)
{
    return field.encoding.form != model::Encoding::Form::Flags && !model::isChoice(field.kind) &&
           field.kind != model::FieldKind::ModelNumber && field.kind != model::FieldKind::ServoId;
}

std::vector<StripCurves> stripsOf(const model::Family &family, const QStringList &keys,
                                  const recording::UnitChoice &unitOf)
{
    std::vector<const model::Field *> fields;
    for (const model::Field &field : family.fields) {
        if (canBeShown(field) && keys.contains(QLatin1String(field.key)))
            fields.push_back(&field);
    }
    // What the servo does comes first, and so is painted over what it is asked for.
    std::stable_sort(fields.begin(), fields.end(), [](const model::Field *one, const model::Field *other) {
        return std::pair(rank(*one), one->isWritable()) < std::pair(rank(*other), other->isWritable());
    });
    std::vector<StripCurves> strips;
    for (const model::Field *field : fields) {
        const int unit = unitOf(field->kind);
        const QString key = stripKey(*field, unit);
        auto strip = std::find_if(strips.begin(), strips.end(), [&](const auto &other) { return other.key == key; });
        if (strip == strips.end())
            strip = strips.insert(strips.end(), {key, {}});
        strip->curves.push_back({{field, unit}, penOf(strip->curves.size(), *field)});
    }
    return strips;
}

} // namespace plot
