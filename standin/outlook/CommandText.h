// The words of commands and their answers.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "model/CommandBars.h"
#include "model/Items.h"
#include "outlook/Face.h"

namespace tellwick::standin {

Text FromUtf8(std::string_view bytes);
// A line's words, see Commands.h.
std::vector<Text> SplitWords(TextView line);
Text Quoted(TextView text);
// The entries of a list.
Text Joined(const std::vector<Text>& entries);
// With two decimal places.
Text RealText(double number);
TextView KindOf(const Item& item);
Text ScreenRectangle(const RECT& rectangle);
// Size and number of colours of a picture, "none" without one.
Text FaceText(const Face& face);
// The controls of a bar.
Text DescribeAll(CommandBar& bar);

// Throws std::runtime_error with the message unless the condition holds.
void Require(bool condition, const char* message);

// Prints a line in UTF-8 to the standard output at once.
void PrintLine(TextView line);

}  // namespace tellwick::standin
