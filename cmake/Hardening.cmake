# Protections that make a memory error harder to exploit, for what ships: each where the compiler or
# the linker knows it. Sanitizers find the error itself, and clash with some of these.
option(ORVEL_HARDENING "Build with the protections of the compiler and the linker" ON)

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

set(orvel_hardening_compile)
set(orvel_hardening_link)
if(ORVEL_HARDENING AND NOT ORVEL_SANITIZE AND NOT EMSCRIPTEN)  # whose machine keeps its stack apart
    check_pie_supported(LANGUAGES CXX)
    set(candidates -fstack-protector-strong)
    if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
        # Shadow stacks and landing pads. clang takes the option of another processor, with a warning.
        if(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
            list(APPEND candidates -mbranch-protection=standard)
        else()
            list(APPEND candidates -fcf-protection=full)
        endif()
        check_linker_flag(CXX -Wl,-z,relro,-z,now ORVEL_HAS_RELRO)
        if(ORVEL_HAS_RELRO)
            set(orvel_hardening_link -Wl,-z,relro,-z,now)
        endif()
    endif()
    foreach(flag IN LISTS candidates)
        string(MAKE_C_IDENTIFIER "ORVEL_HAS${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            list(APPEND orvel_hardening_compile ${flag})
        endif()
    endforeach()
    # It works in optimised code alone, and the C library complains where that is missing. Whoever
    # builds a distribution has set it already.
    foreach(config IN ITEMS Release RelWithDebInfo MinSizeRel)
        string(TOUPPER ${config} upper)
        set(flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${upper}}")
        if(flags MATCHES "-O[1-3s]" AND NOT flags MATCHES "_FORTIFY_SOURCE")
            list(APPEND orvel_hardening_compile
                 $<$<CONFIG:${config}>:-U_FORTIFY_SOURCE> $<$<CONFIG:${config}>:-D_FORTIFY_SOURCE=2>)
        endif()
    endforeach()
endif()

# orvel_harden(TARGET): a host that links the target decides for itself.
function(orvel_harden target)
    target_compile_options(${target} PRIVATE ${orvel_hardening_compile})
    target_link_options(${target} PRIVATE ${orvel_hardening_link})
    if(ORVEL_HARDENING)
        set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endif()
endfunction()
