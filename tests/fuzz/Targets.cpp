#include "fuzz/Targets.h"

namespace tellwick::test {

const std::vector<FuzzTarget> FuzzTargets = {{"ini", FuzzIni},
                                             {"language", FuzzLanguage},
                                             {"trace", FuzzTrace},
                                             {"numbers", FuzzNumbers},
                                             {"templates", FuzzTemplates},
                                             {"list", FuzzList},
                                             {"phone", FuzzPhone},
                                             {"hex", FuzzHex},
                                             {"air", FuzzAir},
                                             {"queue", FuzzQueue}};

}  // namespace tellwick::test
