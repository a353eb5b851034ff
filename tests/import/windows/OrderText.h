#pragma once

#include "import/OtherImport.h"

#include <QStringList>

/// An order as the arguments of a program.
QStringList ToArguments(const ImportOrder& order);

/// Whether these arguments, without the program's name, are an order.
bool AreOrder(const QStringList& arguments);
ImportOrder OrderOf(const QStringList& arguments);
