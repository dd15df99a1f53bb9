#include "widgets/zelvarlabel.h"

ZelvarLabel::ZelvarLabel(QWidget *parent) : BoundLabel(parent) {}
