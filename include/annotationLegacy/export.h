#pragma once

/// Marks what the library exports; everything else stays hidden.
#define QVA_EXPORT __attribute__((visibility("default")))
/// Keeps an operation of an exported class inside the library.
#define QVA_HIDDEN __attribute__((visibility("hidden")))
