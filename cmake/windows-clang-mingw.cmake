# Cross-compiles for x86_64 Windows with the host's clang and lld on the headers and libstdc++ of MinGW-w64.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
file(GLOB gccFolders LIST_DIRECTORIES true /usr/lib/gcc/${triple}/*-posix)
list(SORT gccFolders COMPARE NATURAL ORDER DESCENDING)
if(NOT gccFolders)
    message(FATAL_ERROR "No libstdc++ for ${triple} found; install g++-mingw-w64-x86-64-posix.")
endif()
list(GET gccFolders 0 gccFolder)

set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET ${triple})
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_AR /usr/bin/${triple}-ar)
set(CMAKE_RANLIB /usr/bin/${triple}-ranlib)

# Without -fms-extensions the MinGW headers define __declspec(property(...)) away as an unknown attribute.
string(JOIN " " CMAKE_CXX_FLAGS_INIT
    -fms-extensions
    -nostdinc++
    -isystem ${gccFolder}/include/c++
    -isystem ${gccFolder}/include/c++/${triple})
# GNU ld rejects clang's duplicate sections, hence lld. Debian keeps libgcc in a folder that clang does not search. The
# same sources make the same programs, byte for byte.
string(JOIN " " CMAKE_EXE_LINKER_FLAGS_INIT
    -Qunused-arguments -fuse-ld=lld -Wl,--no-insert-timestamp -L${gccFolder})
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${CMAKE_EXE_LINKER_FLAGS_INIT}")
# libgcc_eh needs pthread behind it.
set(CMAKE_CXX_STANDARD_LIBRARIES "-lkernel32 -luser32 -lgdi32 -lshell32 -ladvapi32 -lpthread")

set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Packages installed to a prefix of one's own (zor itself, for instance) are named by CMAKE_PREFIX_PATH.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# The C++ runtime, which modules and the programs that load them share: an exception may be thrown in one of them and
# caught in another.
set(ZOR_RUNTIME_MODULES
    ${gccFolder}/libstdc++-6.dll
    ${gccFolder}/libgcc_s_seh-1.dll
    /usr/${triple}/lib/libwinpthread-1.dll)
