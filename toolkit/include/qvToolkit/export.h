#pragma once

/// Marks what the shared toolkit exports; everything else stays hidden, as the checks of its symbols see.
#define QVT_EXPORT __attribute__((visibility("default")))
