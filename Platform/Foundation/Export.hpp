// Marks the symbols that the shared libraries export. All other symbols are hidden.
// Public header.
#pragma once

#define ORIVANTA_API __attribute__((visibility("default")))
