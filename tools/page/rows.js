// Rows that are made as they come into view.

/// Browsers have no elements of any height: beyond this one, a step of the scroll bar is several rows.
const greatestHeight = 12e6;

class VirtualRows {
  /// `space` is in `scroller` and gets the height of all rows; `layer`, in it, holds those in view.
  /// `headHeight` of the view belongs to what stays. `draw` gets the first row and how many fit.
  constructor({ scroller, space, layer, rowHeight, headHeight = 0, draw }) {
    Object.assign(this, { scroller, space, layer, rowHeight, headHeight, draw, count: 0 });
    scroller.addEventListener("scroll", () => this.update(), { passive: true });
    new ResizeObserver(() => this.update()).observe(scroller);
  }

  setCount(count) {
    this.count = count;
    this.space.style.height = `${Math.min(count * this.rowHeight, greatestHeight)}px`;
  }

  get viewHeight() { return Math.max(this.scroller.clientHeight - this.headHeight, this.rowHeight); }

  /// How many pixels of all rows a pixel of the scroll bar is.
  get ratio() {
    const total = this.count * this.rowHeight;
    if (total <= greatestHeight) return 1;
    return (total - this.viewHeight) / (greatestHeight - this.viewHeight);
  }

  get pageRows() { return Math.max(Math.floor(this.viewHeight / this.rowHeight) - 1, 1); }

  update() {
    const top = this.scroller.scrollTop;
    const offset = top * this.ratio;
    const first = Math.max(Math.min(Math.floor(offset / this.rowHeight), this.count - 1), 0);
    this.layer.style.transform = `translateY(${top - (offset - first * this.rowHeight)}px)`;
    const last = Math.min(first + Math.ceil(this.viewHeight / this.rowHeight) + 1, this.count);
    this.draw(first, last);
  }

  /// Scrolls no further than it takes to see the row.
  show(row) {
    const offset = this.scroller.scrollTop * this.ratio;
    const top = row * this.rowHeight;
    if (top < offset) this.scroller.scrollTop = top / this.ratio;
    else if (top + this.rowHeight > offset + this.viewHeight)
      this.scroller.scrollTop = (top + this.rowHeight - this.viewHeight) / this.ratio;
  }
}
