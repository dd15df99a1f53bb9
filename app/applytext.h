#pragma once

#include "dialogs/fieldtext.h"
#include "session/applyreport.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class QWidget;

/** What is told of fields and of blocks that were applied, in the user's language and units. */
class ApplyText : public dialogs::FieldText
{
    Q_DECLARE_TR_FUNCTIONS(ApplyText)

public:
    /** @param view has the lists whose entries are told; must outlive this object. */
    explicit ApplyText(const QWidget &view) : m_view(view) {}

    /** For example "applied: target position 2.499 radians"; with several fields, their number. */
    QString applied(const session::ApplyReport &report) const;
    /** Every field with its value, one a line. */
    QString fields(const std::vector<session::AppliedField> &fields) const;
    /** The rows and the reason of a box, as rich text. */
    QString notApplied(const session::ApplyReport &report) const;
    /** For a block that was never sent, or not read back. */
    QString dropped(const session::ApplyReport &report) const;
    /** For an edit that a connection has ended with. @param controls object names of the changed fields. */
    QString droppedEdit(const QStringList &controls) const;
    /** What the fields of @p controls are called, one a line. */
    QString captions(const QStringList &controls) const;

    QString caption(const model::Field &field) const override;
    QString value(const model::Field &field, qint32 raw) const override;
    QString refusal(quint8 errorByte) const override;
    /** What @p bits in the registers of @p field mean, for example "2.499 radians" or "Joint". */
    QString bitsText(const model::Field &field, quint32 bits) const;

private:
    QString reason(const session::ApplyReport &report) const;
    QString row(const session::AppliedField &field) const;

    const QWidget &m_view;
};
