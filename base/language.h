#pragma once

#include <functional>
#include <string>

#include "base/code_page.h"

// The language in force. Everything here is set by NactiJazyk alone and read by everybody; the texts themselves are in
// LangStr.

/// The hero's name as players see it, in the language's code page; empty until a language with a known number was read.
extern std::string HeroName;
/// The game's web host in this language, without "http://".
extern std::string WebHra;
/// What stands before the name of a help page. Meant: only Czech has a folder of its own; the other languages have a
/// letter before the page's name ("Help/Epravidla.html").
extern std::string HelpCesta;
/// The mark of a start cave in the set editor, "P" or "S"; a blank until a language was read.
extern char LanguageLetter;
/// The logo of the start screen: 1, 2 or 3 for the picture of Image11, Image12 or Image13; 0 until a language was read.
extern int LogoNumber;

/// Loads a language file and shows it: fills LangStr, sets the values above when the language number is 1, 2 or 3 (any
/// other number leaves them as they are), then calls SetLW. The help is looked for beside the language file. Throws
/// Fault when the file cannot be read or is short; nothing is changed then.
void NactiJazyk(const std::string& path);

/// Writes the texts to the forms: runs what the forms have given to OnSetLW, in that order, and then, unless the hero's
/// name is a Latin one, what they have given to OnSetLFont.
void SetLW();

/// Adds a step to SetLW, for the captions of a form.
void OnSetLW(std::function<void()> step);

/// Adds a step that gives a form's controls the Cyrillic charset (204). Nothing ever takes it back.
void OnSetLFont(std::function<void()> step);

/// True when the hero's name begins with a Latin letter. Only that letter is looked at.
bool HeroNameIsLatin();

/// The code page of the texts in force: 1250 with a Latin hero's name, otherwise 1251.
CodePage PageInForce();
