#error "macOS has no <acl/libacl.h>"
