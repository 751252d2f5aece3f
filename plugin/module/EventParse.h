#pragma once

#include "TEventNciParse.h"

/// Takes a change event apart. False, and \a event untouched, when the block is none: its number is not 601
/// (row inserted), 602 (changed) or 603 (deleted). The block must outlive the event.
bool parseChangeEvent(HFNCliParam* block, TEventNciParse* event);
