// Property-list values to and from the objects of Foundation.
#pragma once

#include "core/value.h"

#import <Foundation/Foundation.h>
#include <optional>

namespace frimbolate {

/// Nothing for an object that no property list holds.
std::optional<Value> valueOf(id object);
id objectOf(const Value& value);

/// Nil for text that is not valid UTF-8.
NSString* stringOf(std::string_view text);
std::string toStdString(NSString* string);
NSData* dataOf(const Data& data);
Data bytesOf(NSData* data);

} // namespace frimbolate
