# Choices of a build, and the compiler settings that all targets share.

option(ZOR_WERROR "Treat compiler warnings as errors" OFF)
option(ZOR_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ZOR_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(ZOR_BUILD_BENCHES "Build the benchmarks" ${PROJECT_IS_TOP_LEVEL})
option(ZOR_BUILD_FUZZERS "Build the fuzzers (needs clang)" OFF)
option(ZOR_BUILD_GALLERY "Build the gallery (Windows only) and the loader of its data" ${PROJECT_IS_TOP_LEVEL})

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

if(ZOR_SANITIZE)
    set(sanitizers address,undefined)
    add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${sanitizers})
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
if(ZOR_BUILD_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# What every translation unit of ours is compiled with, and what nobody who links to us inherits.
function(zor_set_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- $<$<BOOL:${ZOR_WERROR}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic
            # The property notation is an extension that we use on purpose.
            $<$<CXX_COMPILER_ID:Clang>:-Wno-language-extension-token>
            # g++ 12 takes the alternatives that a std::variant does not hold for variables that nobody has set.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
            $<$<BOOL:${ZOR_WERROR}>:-Werror>)
    endif()
endfunction()
