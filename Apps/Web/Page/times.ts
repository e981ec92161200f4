// Times as texts.

/** Returns a time as "2026-11-21T18:30", in the time zone of the browser. */
export function localTime(time: Date): string {
  const two = (value: number) => String(value).padStart(2, "0");
  const day = `${time.getFullYear()}-${two(time.getMonth() + 1)}-${two(time.getDate())}`;
  return `${day}T${two(time.getHours())}:${two(time.getMinutes())}`;
}

/** Returns the time of day, such as "18:30". */
export function clockText(time: Date): string {
  return localTime(time).slice(11);
}
