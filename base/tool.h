#pragma once

#include <functional>
#include <string>
#include <string_view>

// What all command-line programs have in common.

/// Text as it is printed: control characters, and bytes that are no UTF-8, become "\xHH". Printed as they are, the
/// names and texts of strangers' files could steer a terminal or begin a line of their own.
std::string Visible(std::string_view utf8);

/// Runs a program and gives back its exit status: the body's, or `failed` after an exception or when the standard
/// output could not be written. Both are told on the standard error, behind the program's name.
int RunTool(const std::string& name, const std::function<int()>& body, int failed = 1);
