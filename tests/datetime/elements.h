// Lists of date elements as text, for tests: fields by their picture letters, numbers by their digits ("!" behind a
// number with the year mark), texts in quotes, separators as they are, a run of three blanks as "_3"; one blank between
// elements. A rejected text is "none".
#pragma once

#include <string>

#include "datetime/picture_parser.h"

std::string DescribeList(const DatePicElement* first);

// What FMTParseDatePic makes of a text; checks that the list is linked both ways and that the other ways to read the
// text (DatePicList, DateElementReader, FMTPictureElements) agree with it.
std::string DescribeText(const std::string& text, int32_t mode);
