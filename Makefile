# Zunbrix: the commands a fresh machine needs are `make demo`, `make check` and `make gui`.
BUILD_DIR ?= build
CMAKE_FLAGS ?=

.PHONY: all deps configure build check bench demo gui screenshots clean

all: build

deps:
	./scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZUNBRIX_WERROR=ON $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD_DIR)

check: build
	cd $(BUILD_DIR) && ctest --output-on-failure --timeout 900

bench: build
	@for b in $(BUILD_DIR)/bench/*; do [ -x "$$b" ] || continue; "$$b" || exit 1; done

# The sample games on each board, listed in demo/*.qvl. A fresh settings folder keeps the user's own settings
# out of the demo.
demo: build
	@settings=$$(mktemp -d) && trap 'rm -rf "$$settings"' EXIT && \
	for board in coolboy mindkids coolgirl; do \
	  list=demo/coolboy.qvl; [ $$board = coolgirl ] && list=demo/coolgirl.qvl; \
	  ZUNBRIX_CONFIG_DIR="$$settings" $(BUILD_DIR)/bin/zunbrix build -b $$board -o demo/zunbrix-demo-$$board.nes $$list \
	    || exit 1; \
	done
	@echo
	@echo "Open a demo multicart in an emulator that knows these boards (mappers 268 and 342), for example:"
	@echo "  fceux demo/zunbrix-demo-coolboy.nes"
	@echo "  fceux demo/zunbrix-demo-mindkids.nes"
	@echo "  fceux demo/zunbrix-demo-coolgirl.nes"
	@echo "Up and Down choose a game, Left and Right turn the page, Start runs it; each game shows PASS or FAIL."

# The desktop program with the COOLBOY demo list, on a fresh settings folder as for the demo.
gui: build
	@settings=$$(mktemp -d) && trap 'rm -rf "$$settings"' EXIT && \
	ZUNBRIX_CONFIG_DIR="$$settings" $(BUILD_DIR)/bin/zunbrix-gui demo/coolboy.qvl

# Pictures of the main window with the demo list, the designer and the dialogs, in English and Chinese, for docs/.
screenshots: build
	@for language in en zh; do \
	  xvfb-run -a -s "-screen 0 1280x800x24" $(BUILD_DIR)/tests/window_screenshot demo/coolboy.qvl $$language \
	    docs/main-window-$$language.png || exit 1; \
	  xvfb-run -a -s "-screen 0 1280x1024x24" $(BUILD_DIR)/tests/design_screenshot $$language factory \
	    docs/designer-$$language.png || exit 1; \
	  xvfb-run -a -s "-screen 0 1280x1024x24" $(BUILD_DIR)/tests/design_screenshot $$language custom \
	    docs/designer-custom-$$language.png || exit 1; \
	done
	@xvfb-run -a $(BUILD_DIR)/tests/small_dialogs_screenshots docs
	@xvfb-run -a $(BUILD_DIR)/tests/rename_dialog_screenshots docs

clean:
	rm -rf $(BUILD_DIR)
