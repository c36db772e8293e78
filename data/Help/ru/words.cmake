set(hero "Зорби")
set(logo logo_zorbi.svg)
set(web_host ${kWebHostRussian})
set(windows en)  # until there are windows in Russian
set(short_words "в|В|к|К|с|С|о|О|у|У|и|И|а|А|я|Я")
set(skip "К содержанию")
set(pages "Страницы справки")
set(languages_label "Язык")
set(footer "Зорби 1.1L. Справка к игре; интернет ей не нужен.")
set(menu "help.html|Как играть" "pravidla.html|Правила" "editovat.html|Авторам" "prispet.html|Прислать"
         "oprogramu.html|О программе")
