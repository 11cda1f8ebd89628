# What of other makers is inside the installed files: a bill of materials (CycloneDX) and the notices that these
# libraries ask to be handed on.
set_property(GLOBAL PROPERTY VEK_CONTENTS "")
set_property(GLOBAL PROPERTY VEK_NOTICES "")

# vek_contains(name LICENSE spdx PACKAGE debian-package SITE url PURPOSE text (HEADER file | TEXT text) regex): the
# groups of the expression, joined by dots, are the version.
function(vek_contains name)
  cmake_parse_arguments(ARG "" "LICENSE;PACKAGE;SITE;PURPOSE" "HEADER;TEXT" ${ARGN})
  if(ARG_HEADER)
    list(POP_FRONT ARG_HEADER file)
    file(READ ${file} text LIMIT 20000)
    set(expression "${ARG_HEADER}")
  else()
    list(POP_FRONT ARG_TEXT text)
    set(expression "${ARG_TEXT}")
  endif()
  if(NOT text MATCHES "${expression}")
    message(FATAL_ERROR "No version of ${name} was found.")
  endif()
  set(version ${CMAKE_MATCH_1})
  if(CMAKE_MATCH_COUNT EQUAL 2)
    string(APPEND version ".${CMAKE_MATCH_2}")
  endif()
  string(CONCAT component
         "    {\n      \"type\": \"library\",\n      \"bom-ref\": \"${name}\",\n      \"name\": \"${name}\",\n"
         "      \"version\": \"${version}\",\n      \"description\": \"${ARG_PURPOSE}\",\n"
         "      \"licenses\": [{ \"expression\": \"${ARG_LICENSE}\" }],\n"
         "      \"externalReferences\": [{ \"type\": \"website\", \"url\": \"${ARG_SITE}\" }]\n    }")
  set_property(GLOBAL APPEND PROPERTY VEK_CONTENTS ${name})
  set_property(GLOBAL PROPERTY VEK_CONTENT_${name} "${component}")
  get_property(notices GLOBAL PROPERTY VEK_NOTICES)
  if(NOT ARG_PACKAGE IN_LIST notices)
    set_property(GLOBAL APPEND PROPERTY VEK_NOTICES ${ARG_PACKAGE})
  endif()
endfunction()

# vek_bill_of_materials(file)
function(vek_bill_of_materials file)
  get_property(names GLOBAL PROPERTY VEK_CONTENTS)
  set(components "")
  foreach(name IN LISTS names)
    get_property(component GLOBAL PROPERTY VEK_CONTENT_${name})
    list(APPEND components "${component}")
  endforeach()
  list(JOIN components ",\n" components)
  list(TRANSFORM names REPLACE "(.+)" "\"\\1\"")
  list(JOIN names ", " names)
  file(CONFIGURE OUTPUT ${file} @ONLY CONTENT [[{
  "bomFormat": "CycloneDX",
  "specVersion": "1.4",
  "version": 1,
  "metadata": {
    "component": {
      "type": "library",
      "bom-ref": "vek",
      "name": "vek",
      "version": "@PROJECT_VERSION@",
      "description": "@PROJECT_DESCRIPTION@"
    }
  },
  "components": [
@components@
  ],
  "dependencies": [{ "ref": "vek", "dependsOn": [@names@] }]
}
]])
endfunction()

# vek_notices(file): the notices of all that is inside, from where Debian keeps them. A system that keeps them elsewhere
# names their packages only.
function(vek_notices file)
  get_property(packages GLOBAL PROPERTY VEK_NOTICES)
  set(text "The files of this package contain code of the libraries that vek.cdx.json names. Their notices:\n")
  foreach(package IN LISTS packages)
    set(notice "See the package ${package}.\n")
    if(EXISTS /usr/share/doc/${package}/copyright)
      file(READ /usr/share/doc/${package}/copyright notice)
    endif()
    string(APPEND text "\n\n======== ${package} ========\n\n${notice}")
  endforeach()
  file(WRITE ${file} "${text}")
endfunction()
