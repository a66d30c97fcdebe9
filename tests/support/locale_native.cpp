#include "support/locale.h"

#include <morvl15/host_native.h>
#include <morvl15/intl.h>

TestLanguage::TestLanguage(uint16_t systemLanguage, uint16_t userLanguage) {
    HostSetLanguages(systemLanguage, userLanguage);
    IntlInit();
}

TestLanguage::~TestLanguage() {
    HostSetLanguages(kEnglish, kEnglish);
    IntlInit();
}
