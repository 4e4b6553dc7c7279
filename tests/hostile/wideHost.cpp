// The smallest host of the wide reader: converts a description, and ends as `tavo-host` does.

#include "asap2/PhAsap2.h"
#include "daq/ConfigurationStream.h"
#include "daq/inventoryWriter.h"
#include "inventory/Inventory.h"
#include "tavo/tavo.h"

int main(int count, char** arguments)
{
    if (count != 3)
        return 1;
    tavo::PhAsap2 reader(arguments[1]);
    tavo::Inventory inventory;
    if (reader.readFile(inventory) != 0)
        return -TAVO_NOT_READ;
    tavo::ConfigurationStream stream;
    if (!stream.open(arguments[2]))
        return 1;
    tavo::writeInventory(stream, inventory);
    return stream.close() == 0 ? 0 : 1;
}
