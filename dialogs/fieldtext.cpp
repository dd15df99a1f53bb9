#include "dialogs/fieldtext.h"

namespace dialogs {

FieldText::~FieldText() = default;

} // namespace dialogs
