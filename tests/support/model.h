#pragma once

// The classes of the model, for tests that see many of them.

#include "model/PhConversion.h"
#include "model/PhParameter.h"
#include "model/PhRange.h"
#include "model/PhSignal.h"
#include "model/PhStructure.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "network/PhChannel.h"
#include "network/PhCluster.h"
#include "network/PhEcu.h"
#include "network/PhFrame.h"
#include "network/PhFunction.h"
#include "network/PhService.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhMemoryPage.h"
#include "topology/PhRaster.h"
#include "topology/PhRoot.h"
