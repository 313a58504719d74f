# From a forecast of Open-Meteo to the values that mono.json and seven.json show.
def picture: if . < 2 then "sun" elif . < 3 then "partly" elif . < 45 then "cloud"
  elif . < 51 then "fog" elif . < 71 then "rain" elif . < 78 then "snow" elif . < 85 then "rain"
  elif . < 95 then "snow" else "storm" end;
def sky: {sun: "Clear", partly: "Partly cloudy", cloud: "Overcast", fog: "Fog", rain: "Rain",
  snow: "Snow", storm: "Thunderstorm"}[picture];
def clock: .[11:16] | ltrimstr("0");
def day: strptime("%Y-%m-%d") | mktime;

(.current.time[0:10]) as $today
| ($today[0:8] + "01" | day) as $first
| ($first + 32 * 86400 | gmtime | strftime("%Y-%m-01") | day) as $next
| (($first | strftime("%u") | tonumber) - 1) as $blank
| .current.time as $now
| ([.hourly.time[] | select(. < $now)] | length) as $hour
| {
  date: {day: ($today | day | strftime("%d") | tonumber), weekday: ($today | day | strftime("%A")),
         month: ($today | day | strftime("%B")), week: ($today | day | strftime("%V") | tonumber)},
  now: {temp: .current.temperature_2m, feels: .current.apparent_temperature,
        sky: (.current.weather_code | sky), picture: (.current.weather_code | picture),
        wind: .current.wind_speed_10m, humidity: .current.relative_humidity_2m,
        sunrise: (.daily.sunrise[0] | clock), sunset: (.daily.sunset[0] | clock)},
  hours: {names: [.hourly.time[$hour:$hour + 16][] | .[11:13] | tonumber | tostring],
          temp: .hourly.temperature_2m[$hour:$hour + 16],
          rain: .hourly.precipitation_probability[$hour:$hour + 16]},
  days: [range(1; 6) as $i | {name: (.daily.time[$i] | day | strftime("%a")),
         picture: (.daily.weather_code[$i] | picture),
         high: .daily.temperature_2m_max[$i], low: .daily.temperature_2m_min[$i]}],
  weeks: ([range(-$blank; 42 - $blank) | if . < 0 or $first + . * 86400 >= $next then {}
           elif ($first + . * 86400 | strftime("%Y-%m-%d")) == $today then {n: (. + 1), today: true}
           else {n: (. + 1)} end] | [range(0; 42; 7) as $i | .[$i:$i + 7]]),
  events: [],
  updated: ($now | clock)}
