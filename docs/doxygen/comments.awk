# Turns the headers' comments into Doxygen's form. A comment belongs to all the declarations that follow it without an
# empty line; the first comment of a file tells the file; a ruled line opens a section.

# Text as Markdown, with what Doxygen would take for its own commands kept as it is; code stays between its backticks.
function escaped(text,    parts, count, i, result) {
  count = split(text, parts, "`")
  for (i = 1; i <= count; ++i) {
    if (i % 2) {
      gsub(/[\\@#%<>&$]/, "\\\\&", parts[i])
      gsub(/\*/, "\\*", parts[i])
      gsub(/"/, "\\quot;", parts[i])
      gsub(/\\quot;/, "\\&quot;", parts[i])
    }
    result = result (i > 1 ? "`" : "") parts[i]
  }
  return result
}

# A line of a comment, its slashes gone. "  name   in: text" becomes an item of a list.
function converted(text) {
  sub(/^ +- /, "- ", text)
  if (match(text, /^  [A-Za-z0-9_, .]+ +(in\/out|in|out):/) || match(text, /^  [a-z][A-Za-z0-9_]*  +[^ ]/)) {
    sub(/^ +/, "", text)
    split(text, words, /  +/)
    name = words[1]
    sub(/ (in|out|in\/out):.*/, "", name)
    rest = substr(text, length(name) + 1)
    sub(/^ +/, "", rest)
    return "- `" name "` " escaped(rest)
  }
  if (text ~ /^(Result|Failure|Example|Thread-safe):/) return "\n/// " escaped(text)
  return escaped(text)
}

function flush_block(    i) {
  for (i = 1; i <= held; ++i) print "///" (block[i] ~ /^(\n|$)/ ? "" : " ") block[i]
}

/^ *\/\/ ----/ { next }

/^ *\/\/( |$)/ {
  if (!in_comment) held = 0
  in_comment = 1
  line = $0
  sub(/^ *\/\/ ?/, "", line)
  block[++held] = converted(line)
  next
}

# The first code line of a file: the comment above it tells the file.
in_comment && !told_file {
  told_file = 1
  print "/// \\file"
  flush_block()
  held = 0
}

in_comment && /^ *$/ { held = 0 }
/^ *$/ { held = 0; in_comment = 0; print; next }

{
  starts = !continues && $0 !~ /^ *#pragma|^ *[{}]/
  if (held && starts) flush_block()
  in_comment = 0
  if ($0 ~ /^typedef|^struct|^enum/) held = 0
  continues = starts ? $0 !~ /;/ && $0 !~ /^ *#/ && $0 !~ /\{/ : $0 !~ /;/
  if ($0 ~ /^ *#/) continues = 0
  if (match($0, /[;,] +\/\/ /) || match($0, /^ *#define .*  \/\/ /)) {
    line = $0
    at = index(line, "// ")
    print substr(line, 1, at - 1) "///< " escaped(substr(line, at + 3))
    trailing = at
    next
  }
  print
}
