// Marks what the shared libraries offer to the outside; everything else stays hidden.
// Public header.
#pragma once

#define ORIVANTA_API __attribute__((visibility("default")))
