// The widths of the system's integers on macOS. Some are narrower than on Linux: the mode of a file
// has 16 bits.
#ifndef _BITS_TYPESIZES_H
#define _BITS_TYPESIZES_H 1

#define __BLKCNT64_T_TYPE long long
#define __BLKCNT_T_TYPE long long
#define __BLKSIZE_T_TYPE int
#define __CLOCKID_T_TYPE int
#define __CLOCK_T_TYPE unsigned long
#define __CPU_MASK_TYPE unsigned long
#define __DADDR_T_TYPE int
#define __DEV_T_TYPE int
#define __FD_SETSIZE 1024
#define __FSBLKCNT64_T_TYPE unsigned long long
#define __FSBLKCNT_T_TYPE unsigned int
#define __FSFILCNT64_T_TYPE unsigned long long
#define __FSFILCNT_T_TYPE unsigned int
#define __FSID_T_TYPE                                                                              \
    struct {                                                                                       \
        int __val[2];                                                                              \
    }
#define __FSWORD_T_TYPE long
#define __GID_T_TYPE unsigned int
#define __ID_T_TYPE unsigned int
#define __INO64_T_TYPE unsigned long long
#define __INO_T_TYPE unsigned long long
#define __KERNEL_OLD_TIMEVAL_MATCHES_TIMEVAL64 1
#define __KEY_T_TYPE int
#define __MODE_T_TYPE unsigned short
#define __NLINK_T_TYPE unsigned short
#define __OFF64_T_TYPE long long
#define __OFF_T_MATCHES_OFF64_T 1
#define __OFF_T_TYPE long long
#define __PID_T_TYPE int
#define __RLIM64_T_TYPE unsigned long long
#define __RLIM_T_TYPE unsigned long long
#define __SSIZE_T_TYPE long
#define __STATFS_MATCHES_STATFS64 1
#define __SUSECONDS64_T_TYPE int
#define __SUSECONDS_T_TYPE int
#define __SYSCALL_SLONG_TYPE long
#define __SYSCALL_ULONG_TYPE unsigned long
#define __TIMER_T_TYPE void*
#define __TIME_T_TYPE long
#define __UID_T_TYPE unsigned int
#define __USECONDS_T_TYPE unsigned int

#endif
