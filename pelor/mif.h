#pragma once

// Everything for interchange pairs.
