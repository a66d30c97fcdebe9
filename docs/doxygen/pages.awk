# Gives the headings of a Markdown page the names that links within the page use, as web viewers do. The top README
# opens the reference.
function slug(text) {
  text = tolower(text)
  gsub(/[^a-z0-9 -]/, "", text)
  gsub(/ /, "-", text)
  return page "-" text
}

FNR == 1 {
  page = FILENAME
  sub(/\.md$/, "", page)
  sub(/.*\//, FILENAME ~ /bench/ ? "bench-" : "", page)
}
FNR == 1 && page == "README" { print $0 " {#mainpage}"; next }
/^```/ { in_code = !in_code }
!in_code && /^##+ / {
  heading = $0
  sub(/^#+ /, "", heading)
  print $0 " {#" slug(heading) "}"
  next
}
!in_code { gsub(/\]\(#/, "](#" page "-") }
{ print }
