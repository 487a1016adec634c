#import "macos/values.h"

#include <cmath>

namespace frimbolate {

namespace {

Value numberOf(NSNumber* number) {
    if (CFGetTypeID((__bridge CFTypeRef)number) == CFBooleanGetTypeID())
        return bool(number.boolValue);
    if (CFNumberIsFloatType((__bridge CFNumberRef)number))
        return double(number.doubleValue);
    // Only unsigned numbers of eight bytes can exceed the signed range.
    if (number.objCType[0] == 'Q')
        return number.unsignedLongLongValue;
    return number.longLongValue;
}

std::optional<Value> arrayOf(NSArray* objects) {
    Array array;
    for (id object in objects) {
        auto value = valueOf(object);
        if (!value)
            return std::nullopt;
        array.push_back(*std::move(value));
    }
    return Value(std::move(array));
}

std::optional<Value> dictionaryOf(NSDictionary* objects) {
    Dictionary dictionary;
    for (id key in objects) {
        auto value = valueOf(objects[key]);
        if (!value || ![key isKindOfClass:NSString.class])
            return std::nullopt;
        dictionary.emplace(toStdString(key), *std::move(value));
    }
    return Value(std::move(dictionary));
}

id objectsOf(const Array& array) {
    NSMutableArray* result = [NSMutableArray array];
    for (const Value& value : array)
        [result addObject:objectOf(value)];
    return result;
}

id objectsOf(const Dictionary& dictionary) {
    NSMutableDictionary* result = [NSMutableDictionary dictionary];
    for (const auto& [key, value] : dictionary)
        if (NSString* name = stringOf(key))
            result[name] = objectOf(value);
    return result;
}

} // namespace

std::optional<Value> valueOf(id object) {
    if ([object isKindOfClass:NSString.class])
        return Value(toStdString(object));
    if ([object isKindOfClass:NSNumber.class])
        return numberOf(object);
    if ([object isKindOfClass:NSData.class])
        return Value(bytesOf(object));
    if ([object isKindOfClass:NSDate.class])
        return Value(Date{std::int64_t(std::floor([object timeIntervalSince1970]))});
    if ([object isKindOfClass:NSArray.class])
        return arrayOf(object);
    if ([object isKindOfClass:NSDictionary.class])
        return dictionaryOf(object);
    return std::nullopt;
}

id objectOf(const Value& value) {
    if (const auto* text = value.string()) {
        NSString* string = stringOf(*text);
        return string ? string : @"";
    }
    if (const auto* truth = value.boolean())
        return @(*truth);
    if (const auto* number = value.integer())
        return @(*number);
    if (const auto* bigNumber = value.bigInteger())
        return @(*bigNumber);
    if (const auto* real = value.real())
        return @(*real);
    if (const auto* data = value.data())
        return dataOf(*data);
    if (const auto* date = value.date())
        return [NSDate dateWithTimeIntervalSince1970:NSTimeInterval(date->secondsSinceEpoch)];
    if (const auto* array = value.array())
        return objectsOf(*array);
    return objectsOf(*value.dictionary());
}

NSString* stringOf(std::string_view text) {
    return [[NSString alloc] initWithBytes:text.data()
                                    length:text.size()
                                  encoding:NSUTF8StringEncoding];
}

std::string toStdString(NSString* string) {
    NSData* bytes = [string dataUsingEncoding:NSUTF8StringEncoding];
    return {static_cast<const char*>(bytes.bytes), bytes.length};
}

NSData* dataOf(const Data& data) {
    return [NSData dataWithBytes:data.bytes.data() length:data.bytes.size()];
}

Data bytesOf(NSData* data) {
    const auto* first = static_cast<const std::uint8_t*>(data.bytes);
    return Data{{first, first + data.length}};
}

} // namespace frimbolate
