# Collects the blocks of one language of Markdown pages as functions, so that a build compiles what the pages show. A
# block that defines a function stands as it is.
#   awk -v language=c -f snippets.awk README.md docs/*.md
BEGIN { print "#include <morvl15/morvl15.h>\n#include <string.h>" }

function put_block() {
  if (!defines) printf "\nvoid Snippet%d(void);\nvoid Snippet%d(void) {\n", ++count, count
  printf "#line %d \"%s\"\n%s", start, FILENAME, block
  if (!defines) print "}"
}

FNR == 1 { inside = 0 }
!inside && $0 == "```" language {
  inside = 1
  defines = 0
  block = ""
  start = FNR + 1
  next
}
inside && /^```/ { inside = 0; put_block(); next }
inside { if (/^[A-Za-z].*\) \{$/ && !/^(if|for|while) /) defines = 1; block = block $0 "\n" }
