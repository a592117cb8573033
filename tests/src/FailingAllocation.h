// Lets a chosen allocation of this program fail.
#pragma once

/// Allocations that still succeed before one throws std::bad_alloc; negative: none fails. Back to -1 after the failure.
extern long failAfter;
