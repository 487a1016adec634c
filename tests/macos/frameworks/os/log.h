// The part of the unified log that the program uses. There, too, a format must be a literal.
#pragma once

#include <stdint.h>

extern "C" {

typedef struct os_log_s* os_log_t;
typedef uint8_t os_log_type_t;
enum : os_log_type_t { OS_LOG_TYPE_DEFAULT = 0 };
extern struct os_log_s _os_log_default;
void os_log_entry(os_log_t log, os_log_type_t type, const char* format, ...);
}

#define OS_LOG_DEFAULT (&_os_log_default)
#define os_log_with_type(log, type, format, ...) os_log_entry(log, type, "" format, __VA_ARGS__)
