set(ui zelbox_clouddoc_ui zelplatform)

zel_test(clouddoc_page SOURCES tst_page.cpp pagefixture.h LINK ${ui} zeltest_fakes)
zel_test(clouddoc_pageedits SOURCES tst_pageedits.cpp pagefixture.h LINK ${ui} zeltest_fakes)
zel_test(clouddoc_pageoutside SOURCES tst_pageoutside.cpp pagefixture.h LINK ${ui} zeltest_fakes)

# Pictures of the page in all its states, for people.
zel_pictures(clouddoc_pictures SOURCES pictures.cpp LINK ${ui} zeltest_fakes)
