// The part of Foundation that the program uses, declared from its public documentation.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef bool BOOL;
typedef long NSInteger;
typedef unsigned long NSUInteger;
#define nil nullptr
#define YES __objc_yes
#define NO __objc_no

@class NSDictionary<Key, Object>, NSError, NSString;

__attribute__((objc_root_class))
@interface NSObject
+ (instancetype)alloc;
- (instancetype)init;
- (BOOL)isEqual:(id)other;
@end

@protocol NSObject
@end

@protocol NSCopying
@end

@interface NSString : NSObject <NSCopying>
- (BOOL)isEqualToString:(NSString*)other;
@end

@interface NSDictionary<Key, Object> : NSObject
+ (instancetype)dictionaryWithObjects:(const Object[])objects
                              forKeys:(const id<NSCopying>[])keys
                                count:(NSUInteger)count;
@end

@interface NSDictionary (FileAttributes)
@property(readonly) NSString* fileType;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path;
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDirectory;
@property(readonly, copy) NSString* path;
@property(readonly, copy) NSString* lastPathComponent;
- (BOOL)getResourceValue:(id*)value forKey:(NSString*)key error:(NSError**)error;
@end

extern "C" NSString* const NSURLIsDirectoryKey;
extern "C" NSString* const NSURLIsPackageKey;
extern "C" NSString* const NSFileTypeDirectory;

@interface NSNumber : NSObject
@property(readonly) BOOL boolValue;
@end

@interface NSArray<Element> : NSObject
+ (instancetype)arrayWithObjects:(const Element[])objects count:(NSUInteger)count;
@end

typedef NSString* NSErrorDomain;
extern "C" NSErrorDomain const NSCocoaErrorDomain;
extern "C" NSString* const NSLocalizedDescriptionKey;
enum : NSInteger { NSFileReadUnknownError = 256 };

@interface NSError : NSObject
+ (instancetype)errorWithDomain:(NSErrorDomain)domain
                           code:(NSInteger)code
                       userInfo:(NSDictionary<NSString*, id>*)userInfo;
@end

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (NSDictionary<NSString*, id>*)attributesOfItemAtPath:(NSString*)path error:(NSError**)error;
- (BOOL)trashItemAtURL:(NSURL*)url resultingItemURL:(NSURL**)result error:(NSError**)error;
@end
