// A store of secrets that can fail.
#pragma once

#include <map>

#include "delivery/SecretStore.h"

namespace tellwick::test {

struct MemorySecrets : sender::SecretStore {
    Text Read(TextView name) override { return kept[Text(name)]; }
    bool Write(TextView name, TextView value) override {
        if (works) kept[Text(name)] = value;
        return works;
    }
    std::map<Text, Text> kept;
    bool works = true;
};

}  // namespace tellwick::test
