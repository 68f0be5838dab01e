/* Included before every source of libxlsxwriter: the names of files that it opens are UTF-8, whatever the code page of
   the machine, and so is the name of the folder for temporary files. */
#pragma once
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <windows.h>

enum { VM_NAME = 32768 };

static inline const wchar_t *vm_wide(const char *text, wchar_t *wide, int room)
{
    return MultiByteToWideChar(CP_UTF8, 0, text, -1, wide, room) ? wide : L"";
}

static inline FILE *vm_fopen(const char *name, const char *mode)
{
    static __thread wchar_t wide[VM_NAME];
    wchar_t how[8];
    return _wfopen(vm_wide(name, wide, VM_NAME), vm_wide(mode, how, 8));
}

static inline int vm_open(const char *name, int flags, int mode)
{
    static __thread wchar_t wide[VM_NAME];
    return _wopen(vm_wide(name, wide, VM_NAME), flags, mode);
}

static inline char *vm_getenv(const char *name)
{
    static __thread char text[VM_NAME];
    wchar_t wide[64];
    const wchar_t *found = _wgetenv(vm_wide(name, wide, 64));
    return found && WideCharToMultiByte(CP_UTF8, 0, found, -1, text, VM_NAME, NULL, NULL) ? text : NULL;
}

#define fopen vm_fopen
#define fopen64 vm_fopen
#define open vm_open
#define getenv vm_getenv
