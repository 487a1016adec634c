// Converts between property-list values and Foundation objects.
#pragma once

#include "core/value.h"

#import <Foundation/Foundation.h>
#include <optional>

namespace frimbolate {

/// Nothing for an object that a property list cannot contain.
std::optional<Value> valueOf(id object);
id objectOf(const Value& value);

/// nil for text that is not valid UTF-8.
NSString* stringOf(std::string_view text);
std::string toStdString(NSString* string);
NSData* dataOf(const Data& data);
Data bytesOf(NSData* data);

} // namespace frimbolate
