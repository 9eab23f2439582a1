// The queue's values in the registry.
#pragma once

#include "spool/QueueValues.h"
#include "windows/Com.h"

namespace tellwick::sender {

class RegistryQueueValues : public QueueValues {
public:
    std::optional<std::vector<Text>> Names() override;
    std::optional<Text> Read(TextView name) override;
    bool Delete(TextView name) override;

private:
    // Stays open: thousands of values may be read and deleted one after the other.
    windows::RegistryKey key;
};

}  // namespace tellwick::sender
