option(VELMORA_BUILD_TESTS "Build the test suites" ON)
option(VELMORA_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

option(VELMORA_FUZZ "Build the libFuzzer targets (clang), everything instrumented for them" OFF)

if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(VELMORA_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(WIN32)
  # One self-contained executable: no MinGW runtime DLLs next to it.
  add_link_options(-static -static-libgcc -static-libstdc++)
endif()

# Our own targets build warning-free; third-party code (GoogleTest) keeps its own flags.
function(velmora_target_defaults target)
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:C,CXX>:-Wall -Wextra -Werror>)
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE _WIN32_WINNT=0x0A00 WINVER=0x0A00
                                                 NOMINMAX WIN32_LEAN_AND_MEAN)
  endif()
endfunction()
