# The two version texts of a module, which VERGetVersionString and VERGetBuildString read:
#
#   morvl15_version_texts(<program or shared library>
#     [PRODUCT_VERSION <text>] [FILE_VERSION <text>] [TABLE 040904b0|040904E4])
#
# On Windows they go into a version resource, elsewhere into a read-only section of the module's file. The table says
# under which language and code page they stand; without it, 040904b0: US English, Unicode. A second call adds the texts
# of the other table.
if(WIN32)
  enable_language(RC)
endif()

function(morvl15_version_texts target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "PRODUCT_VERSION;FILE_VERSION;TABLE" "")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "morvl15_version_texts: what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  if(NOT arg_TABLE)
    set(arg_TABLE 040904b0)
  endif()
  set(values)
  if(DEFINED arg_PRODUCT_VERSION)
    _morvl15_version_value(values ProductVersion "${arg_PRODUCT_VERSION}")
  endif()
  if(DEFINED arg_FILE_VERSION)
    _morvl15_version_value(values FileVersion "${arg_FILE_VERSION}")
  endif()
  if(WIN32)
    string(PREPEND values "    BLOCK \"${arg_TABLE}\"\n    BEGIN\n")
    string(APPEND values "    END\n")
  endif()

  get_target_property(texts ${target} MORVL15_VERSION_TEXTS)
  if(NOT texts)
    set(texts "")
    _morvl15_version_source(source ${target})
    target_sources(${target} PRIVATE ${source})
    set_target_properties(${target} PROPERTIES MORVL15_VERSION_SOURCE ${source})
  endif()
  string(APPEND texts "${values}")
  set_target_properties(${target} PROPERTIES MORVL15_VERSION_TEXTS "${texts}")
  get_target_property(source ${target} MORVL15_VERSION_SOURCE)
  _morvl15_write_version_source(${source} "${texts}")
endfunction()

# The file that holds a target's texts.
function(_morvl15_version_source result target)
  get_property(languages GLOBAL PROPERTY ENABLED_LANGUAGES)
  set(suffix cpp)
  if(WIN32)
    set(suffix rc)
  elseif(C IN_LIST languages)
    set(suffix c)
  endif()
  set(${result} ${CMAKE_CURRENT_BINARY_DIR}/version_texts/${target}.${suffix} PARENT_SCOPE)
endfunction()

# A line of that file with one text.
function(_morvl15_version_value result key value)
  string(REPLACE "\\" "\\\\" value "${value}")
  if(WIN32)
    string(REPLACE "\"" "\"\"" value "${value}")
    set(line "      VALUE \"${key}\", \"${value}\"\n")
  else()
    string(REPLACE "\"" "\\\"" value "${value}")
    set(line "    \"${arg_TABLE}\\\\${key}\\0\" \"${value}\\0\"\n")
  endif()
  set(${result} "${${result}}${line}" PARENT_SCOPE)
endfunction()

function(_morvl15_write_version_source file texts)
  if(WIN32)
    set(content "1 VERSIONINFO
FILEOS 0x4
BEGIN
  BLOCK \"StringFileInfo\"
  BEGIN
${texts}  END
  BLOCK \"VarFileInfo\"
  BEGIN
    VALUE \"Translation\", 0x0409, 1200
  END
END
")
  else()
    # Nothing refers to the texts, so the compiler and the linker are told to keep them.
    set(content "#if defined(__has_attribute)
#if __has_attribute(retain)
#define RETAIN retain,
#endif
#endif
#if !defined(RETAIN)
#define RETAIN
#endif
__attribute__((section(\".morvl15.version\"), RETAIN used)) static const char versionTexts[] =
${texts}    \"\";
")
  endif()
  file(CONFIGURE OUTPUT ${file} CONTENT "@content@" @ONLY)
endfunction()
