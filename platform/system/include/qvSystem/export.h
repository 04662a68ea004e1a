#pragma once

/// Marks what a platform library exports; everything else stays hidden.
#define QV_EXPORT __attribute__((visibility("default")))
