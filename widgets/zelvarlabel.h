#pragma once

#include "device/izelvarfield.h"
#include "widgets/boundlabel.h"

/** The caption of a field. */
class ZelvarLabel : public BoundLabel<IZelvarField>
{
    Q_OBJECT

public:
    explicit ZelvarLabel(QWidget *parent = nullptr);
};
