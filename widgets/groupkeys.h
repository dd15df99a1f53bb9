#pragma once

#include <QKeySequence>
#include <QObject>

class ZelvarGroupToolButton;
class ZelvarParametersGroupBox;

/**
 * The keys of a group that can be edited, since its buttons may be beyond the edge of the view; and what its buttons
 * and the group itself tell of them. A key works while its button does.
 */
class GroupKeys : public QObject
{
    Q_OBJECT

public:
    /** A child of @p group, whose buttons are @p editSave and @p cancel. Without keys of its own a group gets none. */
    GroupKeys(ZelvarParametersGroupBox &group, ZelvarGroupToolButton &editSave, ZelvarGroupToolButton &cancel);

private:
    struct Row;
    static const Row Rows[];

    void edit();
    void apply();
    void describe(ZelvarGroupToolButton &button, const QKeySequence &key) const;
    void describeEditSave() const;

    ZelvarParametersGroupBox &m_group;
    ZelvarGroupToolButton &m_editSave;
    const Row *m_row;
};
