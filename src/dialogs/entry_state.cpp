#include "dialogs/entry_state.h"

namespace halvorne {

EntryState entry;

}  // namespace halvorne
