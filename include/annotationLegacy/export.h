#pragma once

/// Marks what the library exports; everything else stays hidden.
#define QVA_EXPORT __attribute__((visibility("default")))
