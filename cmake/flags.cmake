# The flags common to all targets, which link tallyfen_flags.
option(TALLYFEN_WERROR "Treat warnings as errors" OFF)
option(TALLYFEN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(TALLYFEN_TSAN "Build with ThreadSanitizer" OFF)
option(TALLYFEN_HARDEN "Build with what Debian's packages are hardened with" OFF)
option(TALLYFEN_FUZZ "Build the fuzz targets; needs clang" OFF)

add_library(tallyfen_flags INTERFACE)
target_compile_options(tallyfen_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Woverloaded-virtual -Wnon-virtual-dtor -Wcast-qual -Wformat=2 -Wnull-dereference
  -Wextra-semi)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tallyfen_flags INTERFACE
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wuseless-cast)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 15)
  # std::stable_sort of g++ 12 calls functions that its own headers mark as deprecated. g++ checks our own calls.
  target_compile_options(tallyfen_flags INTERFACE -Wno-deprecated-declarations)
endif()
if(TALLYFEN_WERROR)
  target_compile_options(tallyfen_flags INTERFACE -Werror)
endif()
if(TALLYFEN_SANITIZE)
  target_compile_options(tallyfen_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tallyfen_flags INTERFACE -fsanitize=address,undefined)
endif()
if(TALLYFEN_TSAN)
  target_compile_options(tallyfen_flags INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(tallyfen_flags INTERFACE -fsanitize=thread)
endif()
if(TALLYFEN_HARDEN)
  include(CheckPIESupported)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  target_compile_options(tallyfen_flags INTERFACE
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -Werror=format-security)
  target_link_options(tallyfen_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
if(TALLYFEN_FUZZ)
  target_compile_options(tallyfen_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
# So that programs without windows do not load the window libraries.
target_link_options(tallyfen_flags INTERFACE -Wl,--as-needed)

# tallyfen_library(NAME SOURCES...) adds the library of the current folder.
function(tallyfen_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE tallyfen_flags)
endfunction()
