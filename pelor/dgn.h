#pragma once

// Everything for design files.
